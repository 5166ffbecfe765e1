#include "utils/low.h"

#include "main.h"
