#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "utilities/net/TCPSocket.h"

// The agent's one TCP stream to the simulation server. Every message in either direction is a
// 4-byte unsigned big-endian length followed by that many payload bytes (no terminator).
//
// Reached through instance(), which creates it on first use from "ServerInitialize" /
// "Connection" / "HostName" and "Port". With "ServerInitialize" / "Server" / "OfflinePlaying"
// true, sendMessage writes nothing.
class Connection {
public:
    // Payloads below this size land in the one receive buffer (which keeps a terminating zero).
    static constexpr size_t kBufferBytes = 16384;
    // Larger payloads up to this size are received whole into the result; longer ones are read
    // past and dropped with a line on "Main", and the next frame is read instead.
    static constexpr size_t kMaxMessageBytes = size_t{1} << 20;

    // Opens a TCP socket (close-on-exec); no network traffic. OpenErr propagates.
    Connection(const std::string& host, unsigned int port);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    // Closes the socket, then prints "Closing Connection to <host>:<port>" on standard output.
    // Deleting the instance() object also forgets it, so the next instance() starts afresh.
    virtual ~Connection();

    // Prints "Connecting to TCP <host>:<port>", binds to any local interface and connects.
    // A bind or connect failure is reported on standard error, the socket is closed and the
    // result is false. HostNotFound for an unknown host propagates.
    virtual bool init();
    // Sends one framed message, unless it is empty or offline play is configured. Partial writes
    // are completed; a failure (for example a closed connection) is logged on "Main", never
    // signalled.
    virtual void sendMessage(const std::string& message);
    // Waits for and reads one framed message into `message` (cut at its first zero byte).
    // False at end of stream or on a read error, with `message` untouched; a frame broken off
    // in the middle is logged on "Main". False at once when the socket is not open.
    virtual bool getMessage(std::string& message);
    // Waits without time limit until the socket is readable; false on error or when not open.
    bool selectInput();

    // The process-wide connection, created on the first call from the configuration.
    static Connection* instance();
    // Deletes the process-wide connection (if any), so the next instance() creates a new one.
    static void resetState();

    const std::string& getHost() const { return mHost; }
    unsigned int getPort() const { return mPort; }
    const TCPSocket& getSocket() const { return mSocket; }

private:
    static Connection*& instanceSlot();
    // Reads exactly `length` bytes into `dest`, joining partial reads; false at end of stream
    // (`error` 0) or on a read error (`error` = errno), `received` telling how far it came.
    bool readFully(char* dest, size_t length, size_t& received, int& error);
    // Reads and discards `length` bytes through `scratch` of `scratchBytes`; as readFully.
    bool skip(size_t length, char* scratch, size_t scratchBytes, size_t& received, int& error);
    // "Connection: <part> broken off after <received> of <length> bytes (<reason>)" on "Main".
    static void logBrokenFrame(const char* part, size_t received, size_t length, int error);

    TCPSocket mSocket;
    std::string mHost;
    unsigned int mPort;
};
