// Operators and functions made from plain functions on numbers.
#pragma once

#include "types/lift.h"
