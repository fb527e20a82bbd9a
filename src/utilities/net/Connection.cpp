#include "utilities/net/Connection.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>

#include "utilities/config/Config.h"
#include "utilities/config/Settings.h"
#include "utilities/logging/Debugger.h"
#include "utilities/net/SocketExceptions.h"

Connection::Connection(const std::string& host, unsigned int port) : mHost(host), mPort(port) {}

Connection::~Connection() {
    mSocket.close();
    std::cout << "Closing Connection to " << mHost << ":" << mPort << std::endl;
    if (instanceSlot() == this) {
        instanceSlot() = nullptr;
    }
}

Connection*& Connection::instanceSlot() {
    static Connection* mConnection = nullptr;
    return mConnection;
}

Connection* Connection::instance() {
    Connection*& connection = instanceSlot();
    if (connection == nullptr) {
        const std::string host = config["ServerInitialize"]["Connection"]["HostName"].asString();
        const int port = config["ServerInitialize"]["Connection"]["Port"].asInt();
        connection = new Connection(host, static_cast<unsigned int>(port));
    }
    return connection;
}

void Connection::resetState() {
    delete instanceSlot();  // the destructor clears the slot
    instanceSlot() = nullptr;
}

bool Connection::init() {
    std::cout << "Connecting to TCP " << mHost << ":" << mPort << std::endl;
    const Addr local(0, 0);
    try {
        mSocket.bind(local);
    } catch (const BindErr& e) {
        std::cerr << "Failed to bind socket with '" << e.what() << "'" << std::endl;
        mSocket.close();
        return false;
    }
    const Addr server(static_cast<unsigned short>(mPort), mHost);
    try {
        mSocket.connect(server);
    } catch (const ConnectErr& e) {
        std::cerr << "Connection failed with: '" << e.what() << "'" << std::endl;
        mSocket.close();
        return false;
    }
    return true;
}

void Connection::sendMessage(const std::string& message) {
    if (message.empty()) {
        return;
    }
    if (settings::offlinePlaying()) {
        return;
    }
    if (!mSocket.isOpen()) {
        Debugger::logg("Main") << "Connection: not connected, message of " << message.size()
                               << " bytes not sent" << std::endl;
        return;
    }
    const auto length = static_cast<uint32_t>(message.size());
    std::string framed;
    framed.reserve(message.size() + 4);
    framed.push_back(static_cast<char>((length >> 24) & 0xFF));
    framed.push_back(static_cast<char>((length >> 16) & 0xFF));
    framed.push_back(static_cast<char>((length >> 8) & 0xFF));
    framed.push_back(static_cast<char>(length & 0xFF));
    framed += message;

    // Normally one call; a short write is completed rather than leaving the server a broken
    // frame. MSG_NOSIGNAL: a server that has gone away must not kill the player with SIGPIPE.
    size_t sent = 0;
    while (sent < framed.size()) {
        const ssize_t put =
            ::send(mSocket.getFD(), framed.data() + sent, framed.size() - sent, MSG_NOSIGNAL);
        if (put > 0) {
            sent += static_cast<size_t>(put);
        } else if (put < 0 && errno == EINTR) {
            continue;
        } else {
            Debugger::logg("Main")
                << "Connection: sending failed after " << sent << " of " << framed.size()
                << " bytes: " << (put < 0 ? std::strerror(errno) : "nothing written") << std::endl;
            return;
        }
    }
}

bool Connection::selectInput() {
    if (!mSocket.isOpen()) {
        return false;
    }
    pollfd input{mSocket.getFD(), POLLIN, 0};
    int ready = 0;
    do {
        ready = ::poll(&input, 1, -1);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

bool Connection::readFully(char* dest, size_t length, size_t& received, int& error) {
    received = 0;
    error = 0;
    while (received < length) {
        const ssize_t got = ::read(mSocket.getFD(), dest + received, length - received);
        if (got > 0) {
            received += static_cast<size_t>(got);
        } else if (got < 0 && errno == EINTR) {
            continue;
        } else {
            error = got < 0 ? errno : 0;
            return false;
        }
    }
    return true;
}

bool Connection::skip(size_t length, char* scratch, size_t scratchBytes, size_t& received,
                      int& error) {
    received = 0;
    while (received < length) {
        size_t chunk = 0;
        const size_t want = std::min(scratchBytes, length - received);
        const bool complete = readFully(scratch, want, chunk, error);
        received += chunk;
        if (!complete) {
            return false;
        }
    }
    return true;
}

void Connection::logBrokenFrame(const char* part, size_t received, size_t length, int error) {
    LogStream& out = Debugger::logg("Main");
    out << "Connection: " << part << " broken off after " << received << " of " << length
        << " bytes (" << (error != 0 ? std::strerror(error) : "end of stream") << ")" << std::endl;
}

bool Connection::getMessage(std::string& message) {
    // The receive buffer of the whole process; payloads below its size land here.
    static char buffer[kBufferBytes];

    while (true) {
        if (!selectInput()) {
            return false;
        }
        std::memset(buffer, 0, sizeof(buffer));

        unsigned char prefix[4] = {};
        size_t received = 0;
        int error = 0;
        if (!readFully(reinterpret_cast<char*>(prefix), sizeof(prefix), received, error)) {
            // End of stream before a new frame is the normal end of the session.
            if (received > 0 || error != 0) {
                logBrokenFrame("message length", received, sizeof(prefix), error);
            }
            return false;
        }
        const size_t length =
            (static_cast<size_t>(prefix[0]) << 24) | (static_cast<size_t>(prefix[1]) << 16) |
            (static_cast<size_t>(prefix[2]) << 8) | static_cast<size_t>(prefix[3]);

        if (length < kBufferBytes) {
            if (!readFully(buffer, length, received, error)) {
                logBrokenFrame("message", received, length, error);
                return false;
            }
            // buffer[length] is still zero, so the text ends inside the buffer.
            message.assign(buffer, ::strnlen(buffer, length));
            return true;
        }

        if (length <= kMaxMessageBytes) {
            std::string large(length, '\0');
            if (!readFully(large.data(), length, received, error)) {
                logBrokenFrame("message", received, length, error);
                return false;
            }
            large.resize(::strnlen(large.data(), length));
            message.swap(large);
            return true;
        }

        if (!skip(length, buffer, sizeof(buffer), received, error)) {
            logBrokenFrame("oversized message", received, length, error);
            return false;
        }
        Debugger::logg("Main") << "Connection: dropped a message of " << length
                               << " bytes (more than " << kMaxMessageBytes << ")" << std::endl;
    }
}
