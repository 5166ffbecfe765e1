// A calculator for everybody on this machine, a thread for each client.
//   server 4000 &
//   nc 127.0.0.1 4000
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstdlib>
#include <iostream>
#include <thread>

#include "client.h"

int main(int count, char** values) {
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address = {};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<unsigned short>(count == 2 ? std::atoi(values[1]) : 0));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (count != 2 || bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      listen(listener, 16) != 0) {
    std::cerr << "usage: server PORT, which must be free\n";
    return 1;
  }
  while (true) {
    const int client = accept(listener, nullptr, nullptr);
    if (client >= 0) std::thread(ServeClient, client).detach();
  }
}
