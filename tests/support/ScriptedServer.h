#pragma once

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace support {

using Millis = std::chrono::milliseconds;

// What the scripted server does once a client has connected, step by step. Every step that
// waits has a time limit, so a script always ends.
struct ServerScript {
    enum class Step {
        SendFrame,    // the text framed with the 4-byte big-endian length
        SendRaw,      // the text as is (broken prefixes, frames split at any byte)
        ExpectFrame,  // the client's next frame received after the last send, within the limit
        Sleep,        // a pause, reading what the client sends; it ends when the client closes
        Close,        // end of stream to the client
        Reset         // abort: the client's next read fails with a connection reset
    };
    struct Action {
        Step step;
        std::string bytes;
        Millis limit;
    };

    ServerScript& sendFrame(std::string payload) { return add(Step::SendFrame, payload); }
    ServerScript& sendRaw(std::string bytes) { return add(Step::SendRaw, bytes); }
    ServerScript& expectFrame(Millis limit = Millis(3000)) {
        return add(Step::ExpectFrame, "", limit);
    }
    ServerScript& sleep(Millis limit) { return add(Step::Sleep, "", limit); }
    ServerScript& close() { return add(Step::Close); }
    ServerScript& reset() { return add(Step::Reset); }

    std::vector<Action> actions;

private:
    ServerScript& add(Step step, std::string bytes = "", Millis limit = Millis(0)) {
        actions.push_back({step, std::move(bytes), limit});
        return *this;
    }
};

// A one-connection server on 127.0.0.1 (ephemeral port) speaking the length-prefixed framing:
// a background thread accepts one client within 5 s and runs the script, recording every frame
// the client sends. At the end of the script it reads what is already waiting, then closes.
// Read the frames after wait(); the destructor stops the script.
class ScriptedServer {
public:
    explicit ScriptedServer(ServerScript script);
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    [[nodiscard]] uint16_t port() const { return mPort; }
    // Waits for the script to end; false if it still runs after `limit`.
    bool wait(Millis limit = Millis(20000));
    [[nodiscard]] std::vector<std::string> frames() const;

private:
    void run();
    // Waits up to `limit` for bytes from the client and takes all that came; false once the
    // client has closed or the server is stopping.
    bool pump(Millis limit);

    ServerScript mScript;
    int mListen = -1;
    int mClient = -1;
    std::array<int, 2> mWake{-1, -1};  // written by the destructor to stop the script
    uint16_t mPort = 0;
    bool mClientClosed = false;  // script thread only
    size_t mTaken = 0;           // frames accounted for by sends and ExpectFrame steps

    mutable std::mutex mMutex;
    std::condition_variable mDoneCv;
    bool mDone = false;
    bool mStop = false;
    std::string mPending;  // bytes of an incomplete frame
    std::vector<std::string> mFrames;
    std::thread mThread;
};

// A port on 127.0.0.1 where nothing listens, reserved for the life of the object (bound, never
// listening), so a connection attempt to it is refused and no other test can take it.
class ClosedPort {
public:
    ClosedPort();
    ~ClosedPort();
    ClosedPort(const ClosedPort&) = delete;
    ClosedPort& operator=(const ClosedPort&) = delete;
    [[nodiscard]] uint16_t port() const { return mPort; }

private:
    int mFd;
    uint16_t mPort = 0;
};

}  // namespace support
