#include "client.h"

#include <mirlow/state.h>
#include <mirlow/vector.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>

namespace {

constexpr std::size_t kLongestLine = 4096;
constexpr auto kLongestTime = std::chrono::seconds(1);

// What a stranger's command may use.
Quarn::Limits MakeLimits() {
  Quarn::Limits limits;
  limits.steps = 1'000'000;
  limits.memory = 16 << 20;
  limits.output = 64 << 10;
  limits.nesting = 1000;
  limits.ends_the_endless = true;
  return limits;
}

// Interrupts a line that takes too long: many commands, each within its limits.
class Watch {
 public:
  explicit Watch(Quarn::State& state) : state_(state), thread_([this] { Run(); }) {}
  ~Watch() {
    {
      const std::lock_guard lock(mutex_);
      is_over_ = true;
    }
    changed_.notify_one();
    thread_.join();
  }

  void SetBusy(bool is_busy) {
    {
      const std::lock_guard lock(mutex_);
      is_busy_ = is_busy;
    }
    changed_.notify_one();
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    while (!is_over_) {
      changed_.wait(lock, [this] { return is_busy_ || is_over_; });
      const auto is_idle = [this] { return !is_busy_ || is_over_; };
      while (!changed_.wait_for(lock, kLongestTime, is_idle)) state_.Interrupt();
    }
  }

  Quarn::State& state_;
  std::mutex mutex_;
  std::condition_variable changed_;
  bool is_busy_ = false;
  bool is_over_ = false;
  std::thread thread_;  // the last, since it uses all of the above
};

bool Send(int socket, const std::string& text) {
  std::size_t sent = 0;
  while (sent < text.size()) {
    const ssize_t count = send(socket, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return false;
    sent += static_cast<std::size_t>(count);
  }
  return true;
}

// The next line, without its end; false when there is none.
bool ReadLine(int socket, std::string& pending, std::string& line) {
  std::size_t end = 0;
  while ((end = pending.find('\n')) == std::string::npos) {
    char bytes[1024];
    const ssize_t count = recv(socket, bytes, sizeof bytes, 0);
    if (count <= 0 || pending.size() > kLongestLine) return false;
    pending.append(bytes, static_cast<std::size_t>(count));
  }
  line = pending.substr(0, end);
  pending.erase(0, end + 1);
  return true;
}

}  // namespace

void ServeClient(int socket) {
  std::ostringstream out;
  std::istringstream in;
  Quarn::State state(out, in);
  Quarn::Vector::Register(state);
  state.SetLimits(MakeLimits());
  Watch watch(state);
  std::string pending;
  std::string line;
  while (ReadLine(socket, pending, line)) {
    watch.SetBusy(true);
    state.ProcessLine(line);
    watch.SetBusy(false);
    in.clear();
    // An empty line ends the answer.
    if (!Send(socket, out.str() + "\n")) break;
    out.str("");
  }
  close(socket);
}
