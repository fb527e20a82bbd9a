#pragma once

#include <sys/types.h>

#include <cstddef>

#include "utilities/net/Addr.h"

// A socket descriptor with open and connected flags. Failing set-up calls throw the exceptions of
// SocketExceptions.h carrying errno; the send and receive family return the system call's result
// and leave errno set.
class Socket {
public:
    enum CheckingType {
        Check = 0,     // retry interrupted calls
        DontCheck = 1  // exactly one attempt
    };

    Socket() = default;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    // Closes the descriptor if open.
    virtual ~Socket();

    // The base kind cannot accept: throws AcceptErr(EOPNOTSUPP). The caller owns the result.
    virtual Socket* accept(Addr& from);

    // Creates the descriptor (doOpen), marks the socket open and sets close-on-exec; if that
    // fails the socket is closed again and OpenErr(errno) thrown.
    void open();
    // Closes the descriptor if open (descriptor back to 0); always clears connected.
    void close();

    int bind(const Addr& addr);
    int listen(int backlog);
    // A successful connect marks the socket connected.
    int connect(const Addr& addr);

    Addr getPeer() const;
    Addr getDest() const { return getPeer(); }
    Addr getName() const;

    // Check repeats the call while it fails with EINTR or EAGAIN.
    int send(const char* msg, size_t len, int flags = 0, CheckingType check = Check);
    int send(const char* msg, size_t len, const Addr& dest, int flags = 0,
             CheckingType check = Check);
    // Check repeats the call while it fails with EINTR. The second form stores the sender's
    // address after every attempt.
    int recv(char* buf, size_t len, int flags = 0, CheckingType check = Check);
    int recv(char* buf, size_t len, Addr& from, int flags = 0, CheckingType check = Check);
    // Not supported: set errno to EPERM (1) and return -1.
    int recv(int timeout, char* buf, size_t len, int flags = 0, CheckingType check = Check);
    int recv(int timeout, char* buf, size_t len, Addr& from, int flags = 0,
             CheckingType check = Check);
    int setBroadcast(bool on);
    int setAsync(bool on);

    // Sets or clears O_NONBLOCK; -1 when the flags cannot be read.
    int setNonBlocking(bool on);
    int setCloseOnExec(bool on);

    int getFD() const { return mFD; }
    bool isOpen() const { return mOpen; }
    bool isConnected() const { return mConnected; }

protected:
    // Creates the descriptor into fd; throws OpenErr on failure.
    virtual void doOpen(int& fd) = 0;
    // For kinds that adopt a descriptor that is already open and connected.
    void adopt(int fd);

private:
    int mFD = 0;
    bool mOpen = false;
    bool mConnected = false;
};
