// Types of a host's own: a class that holds one C++ value, its rows, and how it reports a failure.
#pragma once

#include "interpreter/add_error.h"
#include "interpreter/state.h"
#include "types/holder.h"
