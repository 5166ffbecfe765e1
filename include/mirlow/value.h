// Values as plain C++, in and out.
#pragma once

#include "types/value.h"
