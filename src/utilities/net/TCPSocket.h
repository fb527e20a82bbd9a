#pragma once

#include "utilities/net/Socket.h"

// A TCP stream socket.
class TCPSocket : public Socket {
public:
    // Opens a socket (close-on-exec set).
    TCPSocket();
    // Opens and binds to local.
    explicit TCPSocket(const Addr& local);
    // Opens, binds to local and connects to dest.
    TCPSocket(const Addr& local, const Addr& dest);
    // Adopts an existing descriptor as open and connected.
    explicit TCPSocket(int fd);
    ~TCPSocket() override = default;

    // Accepts one connection; from receives the peer's address. Throws AcceptErr(errno). The
    // caller owns and deletes the returned socket.
    Socket* accept(Addr& from) override;

protected:
    // Closes any descriptor held, then creates a TCP socket into fd; throws OpenErr(errno).
    void doOpen(int& fd) override;

private:
    // Runs the set-up steps after open(); closes the socket again if one of them throws.
    template <typename Steps>
    void openThen(Steps steps);
};
