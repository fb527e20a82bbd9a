#include "utilities/net/Socket.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>

#include "utilities/net/SocketExceptions.h"

namespace {
constexpr socklen_t kAddrLen = sizeof(sockaddr_in);  // 16 bytes

sockaddr* asSockaddr(sockaddr_in* addr) {
    return reinterpret_cast<sockaddr*>(addr);  // NOLINT: the socket API's own cast
}

const sockaddr* asSockaddr(const sockaddr_in* addr) {
    return reinterpret_cast<const sockaddr*>(addr);  // NOLINT: the socket API's own cast
}

bool retryable(Socket::CheckingType check, bool alsoAgain) {
    return check == Socket::Check && (errno == EINTR || (alsoAgain && errno == EAGAIN));
}
}  // namespace

Socket::~Socket() {
    if (mOpen) {
        ::close(mFD);
    }
}

Socket* Socket::accept(Addr& /*from*/) {
    throw AcceptErr(EOPNOTSUPP);
}

void Socket::open() {
    doOpen(mFD);
    mOpen = true;
    if (::fcntl(mFD, F_SETFD, FD_CLOEXEC) < 0) {
        const int err = errno;
        close();
        throw OpenErr(err);
    }
}

void Socket::close() {
    if (mOpen) {
        ::close(mFD);
        mFD = 0;
        mOpen = false;
    }
    mConnected = false;
}

void Socket::adopt(int fd) {
    mFD = fd;
    mOpen = true;
    mConnected = true;
}

int Socket::bind(const Addr& addr) {
    const int result = ::bind(mFD, asSockaddr(addr.getAddr()), kAddrLen);
    if (result < 0) {
        throw BindErr(errno);
    }
    return result;
}

int Socket::listen(int backlog) {
    const int result = ::listen(mFD, backlog);
    if (result < 0) {
        throw ListenErr(errno);
    }
    return result;
}

int Socket::connect(const Addr& addr) {
    const int result = ::connect(mFD, asSockaddr(addr.getAddr()), kAddrLen);
    if (result < 0) {
        throw ConnectErr(errno);
    }
    mConnected = true;
    return result;
}

Addr Socket::getPeer() const {
    Addr peer;
    socklen_t len = kAddrLen;
    if (::getpeername(mFD, asSockaddr(peer.getAddr()), &len) < 0) {
        throw GetNameErr(errno);
    }
    return peer;
}

Addr Socket::getName() const {
    Addr name;
    socklen_t len = kAddrLen;
    if (::getsockname(mFD, asSockaddr(name.getAddr()), &len) < 0) {
        throw GetNameErr(errno);
    }
    return name;
}

int Socket::send(const char* msg, size_t len, int flags, CheckingType check) {
    ssize_t result = 0;
    do {
        result = ::send(mFD, msg, len, flags);
    } while (result < 0 && retryable(check, true));
    return static_cast<int>(result);
}

int Socket::send(const char* msg, size_t len, const Addr& dest, int flags, CheckingType check) {
    ssize_t result = 0;
    do {
        result = ::sendto(mFD, msg, len, flags, asSockaddr(dest.getAddr()), kAddrLen);
    } while (result < 0 && retryable(check, true));
    return static_cast<int>(result);
}

int Socket::recv(char* buf, size_t len, int flags, CheckingType check) {
    ssize_t result = 0;
    do {
        result = ::recv(mFD, buf, len, flags);
    } while (result < 0 && retryable(check, false));
    return static_cast<int>(result);
}

int Socket::recv(char* buf, size_t len, Addr& from, int flags, CheckingType check) {
    ssize_t result = 0;
    do {
        socklen_t fromLen = kAddrLen;
        result = ::recvfrom(mFD, buf, len, flags, asSockaddr(from.getAddr()), &fromLen);
    } while (result < 0 && retryable(check, false));
    return static_cast<int>(result);
}

int Socket::recv(int /*timeout*/, char* /*buf*/, size_t /*len*/, int /*flags*/,
                 CheckingType /*check*/) {
    errno = EPERM;
    return -1;
}

int Socket::recv(int /*timeout*/, char* /*buf*/, size_t /*len*/, Addr& /*from*/, int /*flags*/,
                 CheckingType /*check*/) {
    errno = EPERM;
    return -1;
}

int Socket::setBroadcast(bool /*on*/) {
    errno = EPERM;
    return -1;
}

int Socket::setAsync(bool /*on*/) {
    errno = EPERM;
    return -1;
}

int Socket::setNonBlocking(bool on) {
    const int flags = ::fcntl(mFD, F_GETFL, 0);
    if (flags < 0) {
        return -1;
    }
    return ::fcntl(mFD, F_SETFL, on ? (flags | O_NONBLOCK) : (flags & ~O_NONBLOCK));
}

int Socket::setCloseOnExec(bool on) {
    return ::fcntl(mFD, F_SETFD, on ? FD_CLOEXEC : ~FD_CLOEXEC);
}
