// A socket that listens on a free port of the loopback.
#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace qv {

// The port that the socket is bound to.
inline int BoundPort(int listener) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

// A socket that has a port and doesn't listen: connections are refused.
inline int BindToLoopback() {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address);
    return listener;
}

inline int ListenOnLoopback() {
    const int listener = BindToLoopback();
    listen(listener, 16);
    return listener;
}

}  // namespace qv
