#pragma once

#include <cstdint>

namespace support {

// A port on 127.0.0.1 where nothing listens, kept reserved for the life of the object (bound,
// never listening), so a connection attempt to it is refused and no other test can take it.
class ClosedPort {
public:
    ClosedPort();
    ~ClosedPort();
    ClosedPort(const ClosedPort&) = delete;
    ClosedPort& operator=(const ClosedPort&) = delete;

    uint16_t port() const { return mPort; }

private:
    int mFd = -1;
    uint16_t mPort = 0;
};

}  // namespace support
