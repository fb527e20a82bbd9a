#pragma once

#include <exception>
#include <string>

// One exception class per failing socket call. Each carries the error number of the failed call
// (errno, or h_errno for the resolver), returned by err().

class HostNotFound : public std::exception {
public:
    explicit HostNotFound(int err) : mErr(err) {}
    ~HostNotFound() override = default;
    // Always "Network error": resolver codes have no strerror text.
    const char* what() const noexcept override;
    int err() const { return mErr; }

private:
    int mErr;
};

// Base of the errno-carrying socket exceptions: what() is strerror of the error number.
class SocketErr : public std::exception {
public:
    explicit SocketErr(int err);
    ~SocketErr() override = default;
    const char* what() const noexcept override;
    int err() const { return mErr; }

private:
    int mErr;
    std::string mText;
};

class OpenErr : public SocketErr {
public:
    explicit OpenErr(int err) : SocketErr(err) {}
};

class BindErr : public SocketErr {
public:
    explicit BindErr(int err) : SocketErr(err) {}
};

class ListenErr : public SocketErr {
public:
    explicit ListenErr(int err) : SocketErr(err) {}
};

class AcceptErr : public SocketErr {
public:
    explicit AcceptErr(int err) : SocketErr(err) {}
};

class GetNameErr : public SocketErr {
public:
    explicit GetNameErr(int err) : SocketErr(err) {}
};

class ConnectErr : public SocketErr {
public:
    explicit ConnectErr(int err) : SocketErr(err) {}
};
