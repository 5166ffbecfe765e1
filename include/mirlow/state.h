// State, the interpreter that a host makes; Result, what it answers; the rows by which types,
// operators and functions come in, and how their failures get words.
#pragma once

#include "interpreter/add_error.h"
#include "interpreter/state.h"
