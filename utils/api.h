// MIRLOW_API marks what hosts link to. The library is compiled with everything else hidden; on
// Windows, where nothing is marked, the linker exports all.
#pragma once

#if defined(_WIN32)
#define MIRLOW_API
#else
#define MIRLOW_API __attribute__((visibility("default")))
#endif
