// Tests of the server: hostile clients at the same time, each of which must get its answers while
// it stays, and none of which may harm another.
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "client.h"

namespace {

std::string Repeat(const std::string& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

// What comes back for a line; it ends with an empty line.
std::string Ask(int socket, const std::string& line) {
  const std::string sent = line + "\n";
  if (send(socket, sent.data(), sent.size(), MSG_NOSIGNAL) < 0) return "";
  std::string answer;
  char byte = 0;
  while (answer != "\n" && !answer.ends_with("\n\n")) {
    if (recv(socket, &byte, 1, 0) <= 0) return "closed";
    answer += byte;
  }
  return answer;
}

bool StaysWhole(const std::string& hostile) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) return false;
  std::thread server(ServeClient, ends[0]);
  Ask(ends[1], "x=2");
  const std::string answer = Ask(ends[1], hostile);
  const bool is_whole = Ask(ends[1], "x+1") == "\tScalar : 3\n\n";
  close(ends[1]);
  server.join();
  if (!is_whole) std::cerr << hostile.substr(0, 60) << " -> " << answer.substr(0, 200);
  return is_whole;
}

bool IsSentAway(const std::string& line) {
  int ends[2];
  if (socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) return false;
  std::thread server(ServeClient, ends[0]);
  const bool is_away = Ask(ends[1], line) == "closed";
  close(ends[1]);
  server.join();
  return is_away;
}

}  // namespace

int main() {
  const std::vector<std::string> lines = {
      "!2.5",
      "!1e9",
      "<1>[1/0]",
      "v=<1>;" + Repeat("v=<v,v>;", 200),
      "a&=x+x;" + Repeat("a&=a+a;", 30),
      "r&=r+1;r",
      Repeat("(1+", 1000) + "1" + Repeat(")", 1000),
      "v=<1,2,3,4,5,6,7,8>;" + Repeat("v=<v,v,v,v,v,v,v,v>;", 100) + "v*v",
      "~y",
      std::string("\0\xFF\x80", 3),
  };
  std::atomic<int> harmed = 0;
  std::vector<std::thread> clients;
  for (const std::string& line : lines) {
    clients.emplace_back([&] { harmed += StaysWhole(line) ? 0 : 1; });
  }
  for (std::thread& client : clients) client.join();
  if (!IsSentAway(Repeat("1+", 100000))) ++harmed;
  return harmed == 0 ? 0 : 1;
}
