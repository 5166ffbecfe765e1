// Vector, which a State knows once it is registered.
#pragma once

#include "types/vector.h"
