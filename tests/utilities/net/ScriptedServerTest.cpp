// The scripted server is the other end of every end-to-end test, so its own framing and
// records are checked here against a plain POSIX client.
#include "support/ScriptedServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;
using Kind = ScriptedServer::EventKind;

std::string framed(const std::string& payload) {
    const auto n = static_cast<uint32_t>(payload.size());
    std::string out{static_cast<char>(n >> 24), static_cast<char>((n >> 16) & 0xFF),
                    static_cast<char>((n >> 8) & 0xFF), static_cast<char>(n & 0xFF)};
    return out + payload;
}

class RawClient {
public:
    explicit RawClient(uint16_t port) : mFd(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in to{};
        to.sin_family = AF_INET;
        to.sin_port = htons(port);
        to.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        mConnected = ::connect(mFd, reinterpret_cast<sockaddr*>(&to), sizeof(to)) == 0;
    }
    ~RawClient() { ::close(mFd); }
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    bool connected() const { return mConnected; }
    void write(const std::string& bytes) {
        ASSERT_EQ(::send(mFd, bytes.data(), bytes.size(), MSG_NOSIGNAL),
                  static_cast<ssize_t>(bytes.size()));
    }
    // Everything until end of stream (or 5 s without data).
    std::string readAll() {
        std::string all;
        char chunk[4096];
        pollfd in{mFd, POLLIN, 0};
        while (::poll(&in, 1, 5000) > 0) {
            const ssize_t n = ::recv(mFd, chunk, sizeof(chunk), 0);
            if (n <= 0) {
                break;
            }
            all.append(chunk, static_cast<size_t>(n));
        }
        return all;
    }
    // Exactly n bytes, or what arrived before end of stream or 5 s without data.
    std::string readExactly(size_t n) {
        std::string got;
        char chunk[4096];
        pollfd in{mFd, POLLIN, 0};
        while (got.size() < n && ::poll(&in, 1, 5000) > 0) {
            const ssize_t r = ::recv(mFd, chunk, std::min(sizeof(chunk), n - got.size()), 0);
            if (r <= 0) {
                break;
            }
            got.append(chunk, static_cast<size_t>(r));
        }
        return got;
    }
    void shutdownWrite() { ::shutdown(mFd, SHUT_WR); }

private:
    int mFd;
    bool mConnected = false;
};

std::vector<Kind> kinds(const ScriptedServer& server) {
    std::vector<Kind> out;
    for (const auto& event : server.events()) {
        out.push_back(event.kind);
    }
    return out;
}

TEST(ScriptedServerTest, SendsFramedAndRawBytesThenEndOfStream) {
    ScriptedServer server(
        ServerScript().sendFrame("(time (now 1.00))").sendRaw(std::string("\x00\x00", 2)));
    RawClient client(server.port());
    ASSERT_TRUE(client.connected());
    EXPECT_EQ(client.readAll(), framed("(time (now 1.00))") + std::string("\x00\x00", 2));
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(kinds(server),
              (std::vector<Kind>{Kind::Accepted, Kind::Sent, Kind::SentRaw, Kind::Closed}));
    EXPECT_EQ(server.events()[1].data, "(time (now 1.00))");
}

TEST(ScriptedServerTest, RecordsClientFramesSplitAnywhere) {
    ScriptedServer server(ServerScript().expectFrame().expectFrame().expectFrame());
    RawClient client(server.port());
    const std::string stream = framed("(scene rsg/agent/nao/nao.rsg)") + framed("") + framed("b");
    for (char byte : stream) {
        client.write(std::string(1, byte));
    }
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(server.frames(),
              (std::vector<std::string>{"(scene rsg/agent/nao/nao.rsg)", "", "b"}));
    EXPECT_EQ(server.rawReceived(), stream);
    EXPECT_EQ(kinds(server), (std::vector<Kind>{Kind::Accepted, Kind::Received, Kind::Received,
                                                Kind::Received, Kind::Closed}))
        << server.describeEvents();
}

TEST(ScriptedServerTest, LockStepInterleavesRepliesInOrder) {
    ScriptedServer server(ServerScript::lockStep({"m1", "m2", "m3"}, Millis(3000)));
    RawClient client(server.port());
    for (int i = 1; i <= 3; ++i) {
        EXPECT_EQ(client.readExactly(6), framed("m" + std::to_string(i)));
        client.write(framed("r" + std::to_string(i)));
    }
    ASSERT_TRUE(server.wait());
    std::vector<std::string> order;
    for (const auto& event : server.events()) {
        if (event.kind == Kind::Sent || event.kind == Kind::Received) {
            order.push_back(event.data);
        }
    }
    EXPECT_EQ(order, (std::vector<std::string>{"m1", "r1", "m2", "r2", "m3", "r3"}))
        << server.describeEvents();
}

TEST(ScriptedServerTest, LockStepMovesOnWithoutAReply) {
    ScriptedServer server(ServerScript::lockStep({"m1", "m2"}, Millis(20)));
    RawClient client(server.port());
    EXPECT_EQ(client.readAll(), framed("m1") + framed("m2"));
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(kinds(server), (std::vector<Kind>{Kind::Accepted, Kind::Sent, Kind::Timeout,
                                                Kind::Sent, Kind::Timeout, Kind::Closed}));
}

TEST(ScriptedServerTest, ReadsMessageFilesLineByLine) {
    const std::string path = std::string(KORVEL_BINARY_DIR) + "/scripted-server-messages.txt";
    {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        ASSERT_NE(file, nullptr);
        std::fputs("(time (now 0.02))\n\n(GS (t 0.00) (pm BeforeKickOff))", file);
        std::fclose(file);
    }
    EXPECT_EQ(
        ServerScript::readMessages(path),
        (std::vector<std::string>{"(time (now 0.02))", "", "(GS (t 0.00) (pm BeforeKickOff))"}));
    std::remove(path.c_str());
}

TEST(ScriptedServerTest, GivesUpWhenNobodyConnects) {
    ScriptedServer server(ServerScript().sendFrame("x").acceptTimeout(Millis(50)));
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(kinds(server), std::vector<Kind>{Kind::AcceptTimeout});
}

TEST(ScriptedServerTest, ExpectFrameTimesOutAndNotesClientClose) {
    ScriptedServer server(
        ServerScript().expectFrame(Millis(30)).sendFrame("go").expectClose().sendFrame("late"));
    RawClient client(server.port());
    client.write(std::string("\x00\x00\x00\x09(par", 8));  // an incomplete frame
    EXPECT_EQ(client.readExactly(6), framed("go"));        // the wait for a frame has timed out
    client.shutdownWrite();
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(kinds(server), (std::vector<Kind>{Kind::Accepted, Kind::Timeout, Kind::Sent,
                                                Kind::ClientClosed, Kind::Sent, Kind::Closed}))
        << server.describeEvents();
    EXPECT_EQ(server.events()[3].data, std::string("\x00\x00\x00\x09(par", 8));
    EXPECT_TRUE(server.frames().empty());
    // A half-closed client still reads what follows.
    EXPECT_EQ(client.readAll(), framed("late"));
}

TEST(ScriptedServerTest, DestructorStopsALongScript) {
    const auto start = std::chrono::steady_clock::now();
    {
        ScriptedServer server(ServerScript().sleep(Millis(60000)));
        RawClient client(server.port());
        EXPECT_FALSE(server.wait(Millis(50)));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

}  // namespace
