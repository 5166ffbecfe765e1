#include <cstdio>

const char* GetInnerVersion();

int main() { std::printf("mirlow %s\n", GetInnerVersion()); }
