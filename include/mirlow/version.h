// The version of the library: the one compiled with, and the one linked to.
#pragma once

#include "interpreter/version.h"
