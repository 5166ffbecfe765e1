// State, the interpreter that a host makes; Result, what it answers; the rows by which types,
// operators and functions come in.
#pragma once

#include "interpreter/state.h"
