#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace support {

using Millis = std::chrono::milliseconds;

// What the scripted server does, step by step, once a client has connected. Built with the
// chainable methods below; every step that waits has a time limit, so a script always ends.
class ServerScript {
public:
    enum class Step {
        SendFrame,    // text framed with the 4-byte big-endian length
        SendRaw,      // text written as is (broken prefixes, frames split at any byte)
        ExpectFrame,  // wait up to timeout for the client's next complete frame: one not yet
                      // taken by an earlier ExpectFrame and received after the last send
        ExpectClose,  // wait for the client to close its end, up to timeout
        Sleep,        // pause for timeout, still recording what the client sends
        Close,        // close the connection (the client sees end of stream)
        Reset         // abort the connection (the client's next read fails: connection reset)
    };

    struct Action {
        Step step;
        std::string bytes;
        Millis timeout{0};
    };

    ServerScript& sendFrame(std::string payload);
    ServerScript& sendRaw(std::string bytes);
    ServerScript& expectFrame(Millis timeout = Millis(3000));
    ServerScript& expectClose(Millis timeout = Millis(3000));
    ServerScript& sleep(Millis duration);
    ServerScript& close();
    ServerScript& reset();

    const std::vector<Action>& actions() const { return mActions; }
    Millis getAcceptTimeout() const { return mAcceptTimeout; }

private:
    std::vector<Action> mActions;
    Millis mAcceptTimeout{5000};
};

// A one-connection TCP server on 127.0.0.1 with an ephemeral port, speaking the 4-byte
// big-endian length-prefixed framing. The constructor starts listening and runs the script in
// a background thread: accept one client, then the actions in order. Everything the client sends
// is recorded: its complete frames in order, and an ordered event log that
// interleaves them with what the server sent. When the script has run out the server reads
// what is already waiting and then closes the connection.
//
// Read the results after wait(); the destructor stops a running script early and joins.
//
//   ScriptedServer server(ServerScript().sendFrame("(time (now 0.02))").expectFrame().close());
//   ... connect a client to 127.0.0.1:server.port() and let it talk ...
//   ASSERT_TRUE(server.wait());
//   EXPECT_EQ(server.frames(), (std::vector<std::string>{"(scene rsg/agent/nao/nao.rsg)"}));
class ScriptedServer {
public:
    enum class EventKind {
        Accepted,       // a client connected
        AcceptTimeout,  // nobody connected in time; the script did not run
        Sent,           // a framed message (data: its payload)
        SentRaw,        // raw bytes (data: the bytes)
        SendFailed,     // the client is gone; the script stopped (data: what was to be sent)
        Received,       // a complete client frame (data: its payload)
        Timeout,        // an expectFrame or expectClose step ran out of time
        ClientClosed,   // end of stream from the client (data: any incomplete frame bytes)
        Closed,         // the server closed the connection
        Reset           // the server aborted the connection
    };

    struct Event {
        EventKind kind;
        std::string data;
    };

    explicit ScriptedServer(ServerScript script);
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    // The port to connect to, on 127.0.0.1.
    uint16_t port() const { return mPort; }

    // Waits until the script has ended; false if it is still running after limit.
    bool wait(Millis limit = Millis(20000));

    // Copies of the records (safe while the script runs).
    std::vector<std::string> frames() const;
    std::vector<Event> events() const;
    static const char* kindName(EventKind kind);

private:
    void run();
    // Runs the actions, then closes (or resets) the client connection.
    void runScript(int client);
    // Reads what the client has sent, for up to wait (zero: only what is already there); returns
    // false when the client closed or the server is stopping.
    bool pump(int client, Millis wait);
    bool sendAll(int client, const std::string& bytes);
    void record(EventKind kind, std::string data);
    void takeFrames();
    bool stopping() const;

    ServerScript mScript;
    int mListenFd = -1;
    int mWakeRead = -1;
    int mWakeWrite = -1;
    uint16_t mPort = 0;
    bool mClientClosed = false;  // owned by the script thread
    size_t mTaken = 0;           // frames accounted for by ExpectFrame steps and sends

    mutable std::mutex mMutex;
    std::condition_variable mDoneCv;
    bool mDone = false;
    bool mStop = false;
    std::string mPending;  // client bytes not yet forming a whole frame
    std::vector<std::string> mFrames;
    std::vector<Event> mEvents;

    std::thread mThread;
};

}  // namespace support
