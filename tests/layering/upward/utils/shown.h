// An installed header.
#pragma once

#include "low.h"
#include "utils/shown_too.h"
