#include "main.h"
#include "utils/low.h"
