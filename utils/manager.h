// Manager<T> makes T the only one of its kind: T derives from it, keeps its constructor and its
// destructor private and names Manager<T> a friend. The instance is made on first use and lives
// until Destroy, or to the end of the process. For one thread only.
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

  // The instance, which stays owned here.
  static T& Get() {
    static_assert(!std::is_destructible_v<T>, "the destructor must be private");
    if (!instance_) instance_ = new T;
    return *instance_;
  }

  // Deletes the instance, if there is one; the next Get makes a new one.
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
