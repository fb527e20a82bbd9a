#include "support/ScriptedServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace support {

namespace {

using Clock = std::chrono::steady_clock;

// Binds `fd` to an ephemeral port of 127.0.0.1 and returns the port (0 on failure).
uint16_t bindLoopback(int fd) {
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(local);
    auto* address = reinterpret_cast<sockaddr*>(&local);  // NOLINT: the socket API's own cast
    if (fd < 0 || ::bind(fd, address, size) != 0 || ::getsockname(fd, address, &size) != 0) {
        return 0;
    }
    return ntohs(local.sin_port);
}

std::string frameOf(const std::string& payload) {
    const auto n = static_cast<uint32_t>(payload.size());
    return std::string{static_cast<char>(n >> 24), static_cast<char>((n >> 16) & 0xFF),
                       static_cast<char>((n >> 8) & 0xFF), static_cast<char>(n & 0xFF)} +
           payload;
}

}  // namespace

ScriptedServer::ScriptedServer(ServerScript script)
    : mScript(std::move(script)), mListen(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    mPort = bindLoopback(mListen);
    if (mPort == 0 || ::listen(mListen, 1) != 0 || ::pipe2(mWake.data(), O_CLOEXEC) != 0) {
        throw std::runtime_error("ScriptedServer: cannot listen on 127.0.0.1");
    }
    mThread = std::thread([this] { run(); });
}

ScriptedServer::~ScriptedServer() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mStop = true;
    }
    [[maybe_unused]] const ssize_t woken = ::write(mWake[1], "x", 1);
    mThread.join();
    ::close(mWake[0]);
    ::close(mWake[1]);
}

bool ScriptedServer::wait(Millis limit) {
    std::unique_lock<std::mutex> lock(mMutex);
    return mDoneCv.wait_for(lock, limit, [this] { return mDone; });
}

std::vector<std::string> ScriptedServer::frames() const {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mFrames;
}

bool ScriptedServer::pump(Millis limit) {
    for (int wait = static_cast<int>(limit.count()); !mClientClosed; wait = 0) {
        std::array<pollfd, 2> fds{{{mClient, POLLIN, 0}, {mWake[0], POLLIN, 0}}};
        if (::poll(fds.data(), fds.size(), wait) <= 0) {
            return true;  // nothing (more) within the limit
        }
        if (fds[1].revents != 0) {
            return false;
        }
        std::array<char, 65536> chunk{};
        const ssize_t got = ::recv(mClient, chunk.data(), chunk.size(), 0);
        if (got <= 0) {
            mClientClosed = true;
            break;
        }
        const std::lock_guard<std::mutex> lock(mMutex);
        mPending.append(chunk.data(), static_cast<size_t>(got));
        while (mPending.size() >= 4) {
            size_t length = 0;
            for (int i = 0; i < 4; ++i) {
                length = (length << 8) | static_cast<unsigned char>(mPending[i]);
            }
            if (mPending.size() < 4 + length) {
                break;
            }
            mFrames.push_back(mPending.substr(4, length));
            mPending.erase(0, 4 + length);
        }
    }
    return false;
}

void ScriptedServer::run() {
    std::array<pollfd, 2> fds{{{mListen, POLLIN, 0}, {mWake[0], POLLIN, 0}}};
    if (::poll(fds.data(), fds.size(), 5000) > 0 && fds[0].revents != 0) {
        mClient = ::accept4(mListen, nullptr, nullptr, SOCK_CLOEXEC);
    }
    ::close(mListen);  // one connection per server: later attempts are refused
    if (mClient >= 0) {
        using Step = ServerScript::Step;
        const timeval sendLimit{5, 0};
        ::setsockopt(mClient, SOL_SOCKET, SO_SNDTIMEO, &sendLimit, sizeof(sendLimit));
        bool reset = false;
        for (const ServerScript::Action& action : mScript.actions) {
            if (const std::lock_guard<std::mutex> lock(mMutex); mStop) {
                break;
            }
            const Clock::time_point deadline = Clock::now() + action.limit;
            const auto left = [&deadline] {
                return std::max(Millis(0),
                                std::chrono::duration_cast<Millis>(deadline - Clock::now()));
            };
            if (action.step == Step::SendFrame || action.step == Step::SendRaw) {
                pump(Millis(0));           // what the client said before is logged before it
                mTaken = frames().size();  // and is no answer to it
                const std::string bytes =
                    action.step == Step::SendFrame ? frameOf(action.bytes) : action.bytes;
                if (::send(mClient, bytes.data(), bytes.size(), MSG_NOSIGNAL) !=
                    static_cast<ssize_t>(bytes.size())) {
                    break;
                }
            } else if (action.step == Step::ExpectFrame) {
                while (frames().size() <= mTaken && left().count() > 0 && pump(left())) {
                }
                mTaken = std::min(frames().size(), mTaken + 1);
            } else if (action.step == Step::Sleep) {
                while (left().count() > 0 && pump(left())) {
                }
            } else {
                reset = action.step == Step::Reset;
                break;
            }
        }
        pump(Millis(0));
        if (reset) {  // a zero linger time makes close() send a reset
            const linger now{1, 0};
            ::setsockopt(mClient, SOL_SOCKET, SO_LINGER, &now, sizeof(now));
        } else {  // every byte sent, then a clean end of stream
            ::shutdown(mClient, SHUT_WR);
            pump(Millis(0));
        }
        ::close(mClient);
    }
    const std::lock_guard<std::mutex> lock(mMutex);
    mDone = true;
    mDoneCv.notify_all();
}

ClosedPort::ClosedPort()
    : mFd(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)), mPort(bindLoopback(mFd)) {
    if (mPort == 0) {
        throw std::runtime_error("ClosedPort: cannot reserve a port on 127.0.0.1");
    }
}

ClosedPort::~ClosedPort() {
    ::close(mFd);
}

}  // namespace support
