// The version of the library that is inside.
#include <mirlow/version.h>

const char* GetInnerVersion();

const char* GetInnerVersion() { return Quarn::GetVersion(); }
