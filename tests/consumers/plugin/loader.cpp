// Loads the plug-in, lets it compute on a thread, and unloads it for good.
#include <dlfcn.h>

#include <cstdio>
#include <thread>

int main(int count, char** values) {
  void* plugin = count == 2 ? dlopen(values[1], RTLD_NOW | RTLD_LOCAL) : nullptr;
  if (!plugin) {
    std::fprintf(stderr, "%s\n", dlerror());
    return 1;
  }
  auto* evaluate = reinterpret_cast<double (*)(const char*)>(dlsym(plugin, "Evaluate"));
  double value = 0;
  // What the library keeps for a thread ends with it.
  std::thread([&] { value = evaluate("6*7"); }).join();
  dlclose(plugin);
  if (dlopen(values[1], RTLD_NOW | RTLD_NOLOAD)) {
    std::fputs("the plug-in stays in the process\n", stderr);
    return 1;
  }
  return value == 42 ? 0 : 1;
}
