#include "utilities/net/SocketExceptions.h"

#include <cstring>

const char* HostNotFound::what() const noexcept {
    return "Network error";
}

// The text is taken once at construction, so what() stays valid and thread-safe for the life of
// the exception.
SocketErr::SocketErr(int err) : mErr(err), mText(std::strerror(err)) {}

const char* SocketErr::what() const noexcept {
    return mText.c_str();
}
