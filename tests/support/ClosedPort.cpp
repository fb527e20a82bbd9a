#include "support/ClosedPort.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace support {

ClosedPort::ClosedPort() : mFd(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof(local);
    auto* asAddr = reinterpret_cast<sockaddr*>(&local);  // NOLINT: the socket API's own cast
    if (mFd < 0 || ::bind(mFd, asAddr, sizeof(local)) != 0 ||
        ::getsockname(mFd, asAddr, &len) != 0) {
        const std::string reason = std::strerror(errno);
        if (mFd >= 0) {
            ::close(mFd);
        }
        throw std::runtime_error("ClosedPort: cannot reserve a port: " + reason);
    }
    mPort = ntohs(local.sin_port);
}

ClosedPort::~ClosedPort() {
    ::close(mFd);
}

}  // namespace support
