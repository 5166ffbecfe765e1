#pragma once
#include "types/high.h"
