// Manager<T> makes T the only one of its kind: T derives from it, keeps its constructor private and
// names Manager<T> a friend. The instance is made on first use and lives until Destroy, or to the
// end of the process. For one thread only.
//   class UtilsManager : public Manager<UtilsManager> { ... };
//   UtilsManager::Get().Print("text");
#pragma once

namespace Quarn {

template <class T>
class Manager {
 public:
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;
  virtual ~Manager() = default;

  // The instance, which stays owned here.
  static T& Get() {
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

 private:
  static constinit inline T* instance_ = nullptr;
};

}  // namespace Quarn
