#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "support/ClosedPort.h"
#include "utilities/net/SocketExceptions.h"
#include "utilities/net/TCPSocket.h"

namespace {

constexpr unsigned int kLoopback = 0x7F000001u;

int openDescriptors() {
    int count = 0;
    DIR* dir = ::opendir("/proc/self/fd");
    if (dir == nullptr) {
        return -1;
    }
    while (::readdir(dir) != nullptr) {
        ++count;
    }
    ::closedir(dir);
    return count;
}

// A listening socket on 127.0.0.1 with an ephemeral port.
struct Listener {
    TCPSocket socket{Addr(0, kLoopback)};
    Addr addr;
    Listener() {
        socket.listen(1);
        addr = socket.getName();
    }
};

TEST(SocketTest, DefaultTcpSocketIsOpenWithCloseOnExec) {
    const TCPSocket socket;
    EXPECT_TRUE(socket.isOpen());
    EXPECT_FALSE(socket.isConnected());
    EXPECT_GT(socket.getFD(), 2);
    EXPECT_EQ(::fcntl(socket.getFD(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

TEST(SocketTest, CloseIsIdempotentAndReleasesTheDescriptor) {
    TCPSocket socket;
    const int fd = socket.getFD();
    socket.close();
    EXPECT_FALSE(socket.isOpen());
    EXPECT_EQ(socket.getFD(), 0);
    EXPECT_EQ(::fcntl(fd, F_GETFD), -1);  // really closed
    socket.close();
    EXPECT_FALSE(socket.isOpen());
    EXPECT_EQ(socket.getFD(), 0);
}

TEST(SocketTest, ReopenReplacesTheDescriptor) {
    TCPSocket socket;
    const int before = openDescriptors();
    socket.open();
    EXPECT_TRUE(socket.isOpen());
    EXPECT_EQ(openDescriptors(), before);  // the old descriptor was closed, not leaked
}

TEST(SocketTest, BindToAnyInterfaceEphemeralPortSucceeds) {
    TCPSocket socket;
    EXPECT_EQ(socket.bind(Addr(0, 0)), 0);
    EXPECT_NE(socket.getName().getPort(), 0u);
}

TEST(SocketTest, BindToAPortInUseThrowsBindErr) {
    const Listener listener;
    TCPSocket second;
    try {
        second.bind(listener.addr);
        FAIL() << "second bind succeeded";
    } catch (const BindErr& e) {
        EXPECT_EQ(e.err(), EADDRINUSE);
        EXPECT_STREQ(e.what(), std::strerror(EADDRINUSE));
    }
    EXPECT_TRUE(second.isOpen());  // the caller decides what to do with the socket
}

TEST(SocketTest, ConnectToClosedPortThrowsConnectErr) {
    const support::ClosedPort closed;
    TCPSocket socket;
    try {
        socket.connect(Addr(closed.port(), kLoopback));
        FAIL() << "connected to a closed port";
    } catch (const ConnectErr& e) {
        EXPECT_EQ(e.err(), ECONNREFUSED);
        EXPECT_STREQ(e.what(), std::strerror(ECONNREFUSED));
    }
    EXPECT_FALSE(socket.isConnected());
}

TEST(SocketTest, FailingConstructorLeaksNoDescriptor) {
    const support::ClosedPort closed;
    const int before = openDescriptors();
    EXPECT_THROW(TCPSocket(Addr(0, kLoopback), Addr(closed.port(), kLoopback)), ConnectErr);
    EXPECT_EQ(openDescriptors(), before);
    const Listener listener;
    const int withListener = openDescriptors();
    EXPECT_THROW(TCPSocket{listener.addr}, BindErr);
    EXPECT_EQ(openDescriptors(), withListener);
}

TEST(SocketTest, ConnectAcceptAndExchangeBytes) {
    Listener listener;
    TCPSocket client(Addr(0, kLoopback), listener.addr);
    EXPECT_TRUE(client.isConnected());

    Addr from;
    const std::unique_ptr<Socket> served(listener.socket.accept(from));
    ASSERT_NE(served, nullptr);
    EXPECT_TRUE(served->isOpen());
    EXPECT_TRUE(served->isConnected());
    EXPECT_TRUE(from == client.getName());
    EXPECT_TRUE(served->getPeer() == client.getName());
    EXPECT_TRUE(client.getDest() == listener.addr);

    const std::string hello("(scene rsg/agent/nao/nao.rsg)");
    EXPECT_EQ(client.send(hello.data(), hello.size()), static_cast<int>(hello.size()));
    std::string got(hello.size(), '\0');
    size_t have = 0;
    while (have < got.size()) {
        const int n = served->recv(got.data() + have, got.size() - have);
        ASSERT_GT(n, 0);
        have += static_cast<size_t>(n);
    }
    EXPECT_EQ(got, hello);

    const std::string reply("ok");
    EXPECT_EQ(served->send(reply.data(), reply.size(), from), 2);
    char buf[8] = {};
    Addr sender;
    EXPECT_EQ(client.recv(buf, sizeof(buf), sender), 2);
    EXPECT_EQ(std::string(buf, 2), reply);
}

TEST(SocketTest, ReceiveOnEmptyNonBlockingSocketMakesOneAttemptEitherWay) {
    Listener listener;
    TCPSocket client(Addr(0, kLoopback), listener.addr);
    ASSERT_EQ(client.setNonBlocking(true), 0);
    EXPECT_NE(::fcntl(client.getFD(), F_GETFL) & O_NONBLOCK, 0);
    char buf[4];
    errno = 0;
    EXPECT_EQ(client.recv(buf, sizeof(buf), 0, Socket::DontCheck), -1);
    EXPECT_EQ(errno, EAGAIN);
    errno = 0;
    // Check retries only interrupted calls: "would block" comes back at once.
    EXPECT_EQ(client.recv(buf, sizeof(buf), 0, Socket::Check), -1);
    EXPECT_EQ(errno, EAGAIN);
    ASSERT_EQ(client.setNonBlocking(false), 0);
    EXPECT_EQ(::fcntl(client.getFD(), F_GETFL) & O_NONBLOCK, 0);
}

TEST(SocketTest, CloseOnExecCanBeClearedAndSet) {
    TCPSocket socket;
    EXPECT_EQ(socket.setCloseOnExec(false), 0);
    EXPECT_EQ(::fcntl(socket.getFD(), F_GETFD) & FD_CLOEXEC, 0);
    EXPECT_EQ(socket.setCloseOnExec(true), 0);
    EXPECT_EQ(::fcntl(socket.getFD(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
}

TEST(SocketTest, UnsupportedOperationsFailWithEperm) {
    TCPSocket socket;
    char buf[4];
    Addr from;
    errno = 0;
    EXPECT_EQ(socket.recv(100, buf, sizeof(buf)), -1);
    EXPECT_EQ(errno, EPERM);
    errno = 0;
    EXPECT_EQ(socket.recv(100, buf, sizeof(buf), from), -1);
    EXPECT_EQ(errno, EPERM);
    errno = 0;
    EXPECT_EQ(socket.setBroadcast(true), -1);
    EXPECT_EQ(errno, EPERM);
    errno = 0;
    EXPECT_EQ(socket.setAsync(true), -1);
    EXPECT_EQ(errno, EPERM);
}

TEST(SocketTest, BaseAcceptIsNotSupported) {
    TCPSocket socket;
    Addr from;
    try {
        delete socket.Socket::accept(from);
        FAIL() << "base accept returned";
    } catch (const AcceptErr& e) {
        EXPECT_EQ(e.err(), 95);
        EXPECT_STREQ(e.what(), std::strerror(95));
    }
}

TEST(SocketTest, FailingCallsThrowTheirOwnException) {
    TCPSocket unconnected;
    try {
        unconnected.getPeer();
        FAIL() << "unconnected socket has a peer";
    } catch (const GetNameErr& e) {
        EXPECT_EQ(e.err(), ENOTCONN);
    }
    EXPECT_THROW(unconnected.getDest(), GetNameErr);

    Listener listener;
    TCPSocket client(Addr(0, kLoopback), listener.addr);
    Addr from;
    const std::unique_ptr<Socket> served(listener.socket.accept(from));
    try {
        served->listen(1);  // a connected stream cannot listen
        FAIL() << "connected socket listens";
    } catch (const ListenErr& e) {
        EXPECT_EQ(e.err(), EINVAL);
    }

    TCPSocket notListening;
    try {
        delete notListening.accept(from);
        FAIL() << "accepted on a socket that does not listen";
    } catch (const AcceptErr& e) {
        EXPECT_EQ(e.err(), EINVAL);
    }
}

TEST(SocketTest, AdoptedDescriptorIsOpenAndConnected) {
    const int fd = ::dup(STDERR_FILENO);
    ASSERT_GE(fd, 0);
    {
        const TCPSocket adopted(fd);
        EXPECT_TRUE(adopted.isOpen());
        EXPECT_TRUE(adopted.isConnected());
        EXPECT_EQ(adopted.getFD(), fd);
    }
    EXPECT_EQ(::fcntl(fd, F_GETFD), -1);  // the destructor closed it
}

// Runs where no descriptor is left: 42 when TCPSocket() threw OpenErr(EMFILE) with its text.
[[noreturn]] void openWithoutDescriptors() {
    // The undefined-behaviour checker needs descriptors of its own the first time it checks a
    // class's objects; let it see both kinds here while descriptors are still available.
    {
        const TCPSocket warmUp;
        const OpenErr warmUpErr(0);
        [[maybe_unused]] const char* text = warmUpErr.what();
    }
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_NOFILE, &none);
    int code = 1;
    try {
        const TCPSocket socket;
    } catch (const OpenErr& e) {
        code = e.err() == EMFILE && std::strcmp(e.what(), std::strerror(EMFILE)) == 0 ? 42 : 2;
    }
    std::_Exit(code);
}

TEST(SocketDeathTest, OpenFailureThrowsOpenErr) {
    // In a child process, so the descriptor limit stays there.
    EXPECT_EXIT(openWithoutDescriptors(), ::testing::ExitedWithCode(42), "");
}

}  // namespace
