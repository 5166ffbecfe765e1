// Which texts are numbers as a user writes them, and the text of a number.
#pragma once

#include "types/scalar_literal.h"
#include "utils/s_str_convert.h"
