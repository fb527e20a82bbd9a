#include "utilities/net/TCPSocket.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

#include "utilities/net/SocketExceptions.h"

template <typename Steps>
void TCPSocket::openThen(Steps steps) {
    open();
    try {
        steps();
    } catch (...) {
        close();
        throw;
    }
}

TCPSocket::TCPSocket() {
    open();
}

TCPSocket::TCPSocket(const Addr& local) {
    openThen([&] { bind(local); });
}

TCPSocket::TCPSocket(const Addr& local, const Addr& dest) {
    openThen([&] {
        bind(local);
        connect(dest);
    });
}

TCPSocket::TCPSocket(int fd) {
    adopt(fd);
}

void TCPSocket::doOpen(int& fd) {
    if (isOpen()) {
        close();
    }
    fd = ::socket(AF_INET, SOCK_STREAM, 0);
    if (fd < 0) {
        const int err = errno;
        fd = 0;
        throw OpenErr(err);
    }
}

Socket* TCPSocket::accept(Addr& from) {
    socklen_t len = sizeof(sockaddr_in);
    const int fd = ::accept(getFD(), reinterpret_cast<sockaddr*>(from.getAddr()),  // NOLINT
                            &len);
    if (fd < 0) {
        throw AcceptErr(errno);
    }
    return new TCPSocket(fd);
}
