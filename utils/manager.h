// Manager<T> makes T a singleton: T derives from it, keeps its constructor and destructor private
// and makes Manager<T> a friend. The instance is created on first use and lives until Destroy, or
// to the end of the process. Not thread-safe.
//   class UtilsManager : public Manager<UtilsManager> { ... };
//   UtilsManager::Get().Print("text");
#pragma once

#include <type_traits>

namespace Quarn {

template <class T>
class Manager {
 public:
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;

  static T& Get() {
    static_assert(!std::is_destructible_v<T>, "the destructor must be private");
    if (!instance_) instance_ = new T;
    return *instance_;
  }

  // The next Get creates a new instance.
  static void Destroy() {
    delete instance_;
    instance_ = nullptr;
  }

 protected:
  Manager() = default;
  virtual ~Manager() = default;

 private:
  static constinit inline T* instance_ = nullptr;
};

}  // namespace Quarn
