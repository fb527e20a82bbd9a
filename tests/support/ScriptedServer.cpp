#include "support/ScriptedServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

#include <gtest/gtest.h>

namespace support {

namespace {

using Clock = std::chrono::steady_clock;

constexpr Millis kSendLimit(5000);  // longest wait for the client to make room for our bytes

std::string frameOf(const std::string& payload) {
    const auto length = static_cast<uint32_t>(payload.size());
    std::string framed;
    framed.reserve(payload.size() + 4);
    framed.push_back(static_cast<char>((length >> 24) & 0xFF));
    framed.push_back(static_cast<char>((length >> 16) & 0xFF));
    framed.push_back(static_cast<char>((length >> 8) & 0xFF));
    framed.push_back(static_cast<char>(length & 0xFF));
    framed += payload;
    return framed;
}

int remainingMs(Clock::time_point deadline) {
    const auto left = std::chrono::duration_cast<Millis>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

[[noreturn]] void fail(const char* what) {
    throw std::runtime_error(std::string("ScriptedServer: ") + what + ": " + std::strerror(errno));
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// ServerScript

ServerScript& ServerScript::sendFrame(std::string payload) {
    mActions.push_back({Step::SendFrame, std::move(payload), Millis(0)});
    return *this;
}

ServerScript& ServerScript::sendRaw(std::string bytes) {
    mActions.push_back({Step::SendRaw, std::move(bytes), Millis(0)});
    return *this;
}

ServerScript& ServerScript::expectFrame(Millis timeout) {
    mActions.push_back({Step::ExpectFrame, {}, timeout});
    return *this;
}

ServerScript& ServerScript::expectClose(Millis timeout) {
    mActions.push_back({Step::ExpectClose, {}, timeout});
    return *this;
}

ServerScript& ServerScript::sleep(Millis duration) {
    mActions.push_back({Step::Sleep, {}, duration});
    return *this;
}

ServerScript& ServerScript::close() {
    mActions.push_back({Step::Close, {}, Millis(0)});
    return *this;
}

ServerScript& ServerScript::reset() {
    mActions.push_back({Step::Reset, {}, Millis(0)});
    return *this;
}

// ---------------------------------------------------------------------------------------------
// ScriptedServer

ScriptedServer::ScriptedServer(ServerScript script) : mScript(std::move(script)) {
    std::array<int, 2> wake{};
    if (::pipe2(wake.data(), O_CLOEXEC) != 0) {
        fail("pipe");
    }
    mWakeRead = wake[0];
    mWakeWrite = wake[1];

    mListenFd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (mListenFd < 0) {
        ::close(mWakeRead);
        ::close(mWakeWrite);
        fail("socket");
    }
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_port = 0;
    local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof(local);
    auto* asAddr = reinterpret_cast<sockaddr*>(&local);  // NOLINT: the socket API's own cast
    if (::bind(mListenFd, asAddr, sizeof(local)) != 0 || ::listen(mListenFd, 1) != 0 ||
        ::getsockname(mListenFd, asAddr, &len) != 0) {
        ::close(mListenFd);
        ::close(mWakeRead);
        ::close(mWakeWrite);
        fail("listen on 127.0.0.1");
    }
    mPort = ntohs(local.sin_port);
    mThread = std::thread([this] { run(); });
}

ScriptedServer::~ScriptedServer() {
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mStop = true;
    }
    const char wake = 1;
    [[maybe_unused]] const ssize_t ignored = ::write(mWakeWrite, &wake, 1);
    if (mThread.joinable()) {
        mThread.join();
    }
    if (mListenFd >= 0) {
        ::close(mListenFd);
    }
    ::close(mWakeRead);
    ::close(mWakeWrite);
}

bool ScriptedServer::wait(Millis limit) {
    std::unique_lock<std::mutex> lock(mMutex);
    return mDoneCv.wait_for(lock, limit, [this] { return mDone; });
}

std::vector<std::string> ScriptedServer::frames() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mFrames;
}

std::vector<ScriptedServer::Event> ScriptedServer::events() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mEvents;
}

const char* ScriptedServer::kindName(EventKind kind) {
    static const char* const names[] = {"Accepted",   "AcceptTimeout", "Sent",    "SentRaw",
                                        "SendFailed", "Received",      "Timeout", "ClientClosed",
                                        "Closed",     "Reset"};
    return names[static_cast<int>(kind)];
}

bool ScriptedServer::stopping() const {
    std::lock_guard<std::mutex> lock(mMutex);
    return mStop;
}

void ScriptedServer::record(EventKind kind, std::string data) {
    std::lock_guard<std::mutex> lock(mMutex);
    mEvents.push_back({kind, std::move(data)});
}

void ScriptedServer::takeFrames() {
    // Called with mMutex held.
    while (mPending.size() >= 4) {
        const auto byte = [this](size_t i) { return static_cast<unsigned char>(mPending[i]); };
        const size_t length = (static_cast<size_t>(byte(0)) << 24) |
                              (static_cast<size_t>(byte(1)) << 16) |
                              (static_cast<size_t>(byte(2)) << 8) | static_cast<size_t>(byte(3));
        if (mPending.size() < 4 + length) {
            return;
        }
        std::string payload = mPending.substr(4, length);
        mPending.erase(0, 4 + length);
        mFrames.push_back(payload);
        mEvents.push_back({EventKind::Received, std::move(payload)});
    }
}

void ScriptedServer::run() {
    int client = -1;
    std::array<pollfd, 2> fds{};
    fds[0] = {mListenFd, POLLIN, 0};
    fds[1] = {mWakeRead, POLLIN, 0};
    const int ready =
        ::poll(fds.data(), fds.size(), static_cast<int>(mScript.getAcceptTimeout().count()));
    if (ready > 0 && (fds[0].revents & POLLIN) != 0) {
        client = ::accept4(mListenFd, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    }
    // One connection per server: later connection attempts are refused.
    ::close(mListenFd);
    mListenFd = -1;

    if (client < 0) {
        record(EventKind::AcceptTimeout, {});
    } else {
        record(EventKind::Accepted, {});
        runScript(client);
    }
    std::lock_guard<std::mutex> lock(mMutex);
    mDone = true;
    mDoneCv.notify_all();
}

bool ScriptedServer::pump(int client, Millis wait) {
    if (mClientClosed) {
        return false;
    }
    const Clock::time_point deadline = Clock::now() + wait;
    std::array<char, 65536> chunk{};
    while (true) {
        std::array<pollfd, 2> fds{};
        fds[0] = {client, POLLIN, 0};
        fds[1] = {mWakeRead, POLLIN, 0};
        const int ready = ::poll(fds.data(), fds.size(), remainingMs(deadline));
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return true;  // nothing more within the wait
        }
        if ((fds[1].revents & POLLIN) != 0) {
            return false;
        }
        const ssize_t got = ::recv(client, chunk.data(), chunk.size(), 0);
        if (got < 0 && (errno == EINTR || errno == EAGAIN)) {
            continue;
        }
        if (got <= 0) {
            mClientClosed = true;
            std::string incomplete;
            {
                std::lock_guard<std::mutex> lock(mMutex);
                incomplete.swap(mPending);
            }
            record(EventKind::ClientClosed, std::move(incomplete));
            return false;
        }
        {
            std::lock_guard<std::mutex> lock(mMutex);
            mPending.append(chunk.data(), static_cast<size_t>(got));
            takeFrames();
        }
        if (wait.count() > 0) {
            return true;  // the caller looks at what arrived and decides whether to go on
        }
    }
}

bool ScriptedServer::sendAll(int client, const std::string& bytes) {
    const Clock::time_point deadline = Clock::now() + kSendLimit;
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t put = ::send(client, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
        if (put > 0) {
            done += static_cast<size_t>(put);
            continue;
        }
        if (put < 0 && errno == EINTR) {
            continue;
        }
        if (put < 0 && errno != EAGAIN) {
            return false;
        }
        // The client's receive window is full: keep reading what it sends meanwhile, so neither
        // side can block the other, and give up at the deadline.
        std::array<pollfd, 2> fds{};
        fds[0] = {client, static_cast<short>(POLLOUT | (mClientClosed ? 0 : POLLIN)), 0};
        fds[1] = {mWakeRead, POLLIN, 0};
        const int ready = ::poll(fds.data(), fds.size(), remainingMs(deadline));
        if (ready == 0 || (fds[1].revents & POLLIN) != 0) {
            return false;
        }
        if (ready > 0 && (fds[0].revents & POLLIN) != 0) {
            pump(client, Millis(0));
        }
    }
    return true;
}

void ScriptedServer::runScript(int client) {
    using Step = ServerScript::Step;
    bool open = true;
    bool abort = false;
    for (const ServerScript::Action& action : mScript.actions()) {
        if (!open || stopping()) {
            break;
        }
        switch (action.step) {
            case Step::SendFrame:
            case Step::SendRaw: {
                const bool framed = action.step == Step::SendFrame;
                // What the client said before this message is logged before it.
                pump(client, Millis(0));
                // Frames that came before this message are not replies to it.
                mTaken = frames().size();
                if (sendAll(client, framed ? frameOf(action.bytes) : action.bytes)) {
                    record(framed ? EventKind::Sent : EventKind::SentRaw, action.bytes);
                } else {
                    record(EventKind::SendFailed, action.bytes);
                    open = false;
                }
                break;
            }
            case Step::ExpectFrame: {
                const Clock::time_point deadline = Clock::now() + action.timeout;
                bool alive = pump(client, Millis(0));
                while (alive && frames().size() <= mTaken && Clock::now() < deadline) {
                    alive = pump(client, Millis(std::max(remainingMs(deadline), 1)));
                }
                if (frames().size() > mTaken) {
                    ++mTaken;
                } else {
                    record(EventKind::Timeout, {});
                }
                break;
            }
            case Step::ExpectClose: {
                const Clock::time_point deadline = Clock::now() + action.timeout;
                while (!mClientClosed && !stopping() && Clock::now() < deadline) {
                    pump(client, Millis(std::max(remainingMs(deadline), 1)));
                }
                if (!mClientClosed) {
                    record(EventKind::Timeout, {});
                }
                break;
            }
            case Step::Sleep: {
                const Clock::time_point deadline = Clock::now() + action.timeout;
                while (Clock::now() < deadline && pump(client, Millis(remainingMs(deadline)))) {
                }
                // A client that has closed early does not shorten the pause.
                if (mClientClosed) {
                    pollfd wake{mWakeRead, POLLIN, 0};
                    while (::poll(&wake, 1, remainingMs(deadline)) < 0 && errno == EINTR) {
                    }
                }
                break;
            }
            case Step::Close:
                open = false;
                break;
            case Step::Reset:
                open = false;
                abort = true;
                break;
        }
    }
    if (abort) {
        // Closing with a zero linger time sends a reset instead of an end of stream.
        pump(client, Millis(0));
        const linger now{1, 0};
        ::setsockopt(client, SOL_SOCKET, SO_LINGER, &now, sizeof(now));
        ::close(client);
        record(EventKind::Reset, {});
        return;
    }
    // Take what is already waiting, then send our end of stream before closing, so the client
    // reads every byte we sent followed by a clean end of stream.
    pump(client, Millis(0));
    ::shutdown(client, SHUT_WR);
    pump(client, Millis(0));
    ::close(client);
    record(EventKind::Closed, {});
}

}  // namespace support
