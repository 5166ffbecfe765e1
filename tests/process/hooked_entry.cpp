// The program with a hook after its entry: main.cpp is compiled so that its main is called Entry.
// When that has returned, the hook says which managers it destroyed, in their order, and what the
// clock tells that it installed; then it warns by the manager and dies without flushing anything.
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <new>

#include "utils/time_manager.h"
#include "utils/utils_manager.h"

int Entry(int count, char** values);

namespace {

using Quarn::TimeManager;
using Quarn::UtilsManager;

const void* time_manager = nullptr;
const void* utils_manager = nullptr;
std::size_t destroyed_count = 0;
const char* destroyed[2] = {};

void Note(const void* block) {
  if (!block || destroyed_count == 2) return;
  if (block == time_manager) destroyed[destroyed_count++] = " TimeManager";
  if (block == utils_manager) destroyed[destroyed_count++] = " UtilsManager";
}

double GetProcessorSeconds() { return static_cast<double>(std::clock()) / 1e6; }

bool ClockTellsProcessorTime() {
  const double later = GetProcessorSeconds() + 0.02;
  while (GetProcessorSeconds() < later) {
  }
  const double told = TimeManager::Get().GetTime().Get();
  return later <= told && told <= GetProcessorSeconds();
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* block = std::malloc(size)) return block;
  throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
  Note(block);
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept { operator delete(block); }

int main(int count, char** values) {
  time_manager = &TimeManager::Get();
  utils_manager = &UtilsManager::Get();
  Entry(count, values);
  std::cout << "destroyed:";
  for (std::size_t i = 0; i < destroyed_count; ++i) std::cout << destroyed[i];
  std::cout << "\nprocessor time: " << (ClockTellsProcessorTime() ? "yes" : "no") << std::endl;
  UtilsManager::Get().Warning("hook", "a text");
  UtilsManager::Get().Print("");
  UtilsManager::Get().Print("the last");
  std::_Exit(0);
}
