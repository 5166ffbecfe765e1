#pragma once
#include "utils/low.h"
