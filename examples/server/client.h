// One client of the server, from its first line to its last.
#pragma once

// Answers each line that comes out of the socket with what it prints, until the other side closes
// it or sends a line that is too long. Closes the socket.
void ServeClient(int socket);
