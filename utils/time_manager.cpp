#include "utils/time_manager.h"

namespace Quarn {

constinit TimeManager* TimeManager::instance_ = nullptr;

TimeManager& TimeManager::Get() {
  if (!instance_) instance_ = new TimeManager;
  return *instance_;
}

void TimeManager::Destroy() {
  delete instance_;
  instance_ = nullptr;
}

}  // namespace Quarn
