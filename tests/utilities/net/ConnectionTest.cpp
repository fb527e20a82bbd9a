#include "utilities/net/Connection.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Expected.h"
#include "support/Files.h"
#include "support/ScriptedServer.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Logger.h"

namespace {

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;

using support::LogString;

// The wire form of one message: 4-byte big-endian length, then the payload.
std::string frame(const std::string& payload) {
    const auto n = static_cast<uint32_t>(payload.size());
    std::string out{static_cast<char>(n >> 24), static_cast<char>((n >> 16) & 0xFF),
                    static_cast<char>((n >> 8) & 0xFF), static_cast<char>(n & 0xFF)};
    return out + payload;
}

// n printable bytes that differ from position to position.
std::string pattern(size_t n) {
    std::string text(n, ' ');
    for (size_t i = 0; i < n; ++i) {
        text[i] = static_cast<char>('a' + (i * 7 + i / 26) % 26);
    }
    return text;
}

class ConnectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        Connection::resetState();
        Config::resetState();
        Logger::resetState();
        config.add("ServerInitialize");
        config["ServerInitialize"].addGroup("Server");
        config["ServerInitialize"]["Server"].add("OfflinePlaying", "false");
        logger.add("Main", main, false);
    }
    void TearDown() override {
        Connection::resetState();
        Logger::resetState();
        Config::resetState();
    }

    std::string log() const { return main->text.str(); }

    LogString* main = new LogString;  // owned by the logger
};

// The console lines of a refused connection are pinned by the end-to-end start-up test.
TEST_F(ConnectionTest, RefusedConnectionClosesTheSocketAndNeverWaitsOrSends) {
    const support::ClosedPort closed;
    Connection connection("127.0.0.1", closed.port());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(connection.init());
    testing::internal::GetCapturedStderr();
    testing::internal::GetCapturedStdout();
    EXPECT_FALSE(connection.getSocket().isOpen());
    EXPECT_EQ(connection.getSocket().getFD(), 0);
    // The loop's first receive then fails at once (it must not wait on descriptor 0), and a
    // send is not attempted.
    std::string message = "kept";
    EXPECT_FALSE(connection.getMessage(message));
    EXPECT_EQ(message, "kept");
    connection.sendMessage("(syn)");
    EXPECT_EQ(log(), "Connection: not connected, message of 5 bytes not sent\n");
}

// --- receiving -------------------------------------------------------------------------------

struct ReceiveCase {
    const char* name;
    ServerScript script;
    std::vector<std::string> messages;  // what getMessage returns until it fails
    const char* log;
};

TEST_F(ConnectionTest, ReceivesWholeMessagesAndLogsBrokenFrames) {
    const std::string split = frame("(time (now 46.20))(GS (t 0.00) (pm BeforeKickOff))") +
                              frame("(GYR (n torso) (rt 0.01 0.07 0.46))");
    const std::string big = pattern(Connection::kBufferBytes);
    const std::string largest = pattern(Connection::kMaxMessageBytes);
    const ReceiveCase cases[] = {
        {"in order, then a quiet end",
         ServerScript().sendFrame("(time (now 46.20))").sendFrame("").sendFrame("(syn)").close(),
         {"(time (now 46.20))", "", "(syn)"},
         ""},
        {"split anywhere, the lengths too",
         ServerScript()
             .sendRaw(split.substr(0, 2))
             .sleep(Millis(20))
             .sendRaw(split.substr(2, 54))
             .sleep(Millis(20))
             .sendRaw(split.substr(56)),
         {"(time (now 46.20))(GS (t 0.00) (pm BeforeKickOff))",
          "(GYR (n torso) (rt 0.01 0.07 0.46))"},
         ""},
        {"cut at a zero byte",
         ServerScript().sendFrame(std::string("(See (B (pol 1 2 3)))\0junk", 26)),
         {"(See (B (pol 1 2 3)))"},
         ""},
        {"around the buffer size",
         ServerScript()
             .sendFrame(big.substr(1))
             .sendFrame(big + "!")
             .sendFrame(pattern(20000))
             .sendFrame("x"),
         {big.substr(1), big + "!", pattern(20000), "x"},
         ""},
        {"oversized",
         ServerScript()
             .sendFrame(largest)
             .sendFrame(pattern(Connection::kMaxMessageBytes + 1))
             .sendFrame("(time (now 2.00))"),
         {largest, "(time (now 2.00))"},
         "Connection: dropped a message of 1048577 bytes (more than 1048576)\n"},
        {"end inside a payload",
         ServerScript().sendFrame("(syn)").sendRaw(frame(pattern(100)).substr(0, 9)),
         {"(syn)"},
         "Connection: message broken off after 5 of 100 bytes (end of stream)\n"},
        {"end inside an oversized payload",
         ServerScript().sendRaw(frame(pattern(2 * Connection::kMaxMessageBytes)).substr(0, 40004)),
         {},
         "Connection: oversized message broken off after 40000 of 2097152 bytes (end of "
         "stream)\n"},
        {"end inside the length",
         ServerScript().sendRaw(std::string("\0\0", 2)),
         {},
         "Connection: message length broken off after 2 of 4 bytes (end of stream)\n"},
        {"reset where a length is due",
         ServerScript().reset(),
         {},
         "Connection: message length broken off after 0 of 4 bytes (Connection reset by "
         "peer)\n"},
    };
    for (const ReceiveCase& c : cases) {
        main->text.str("");
        ScriptedServer server(c.script);
        testing::internal::CaptureStdout();  // the console lines of connecting and closing
        {
            Connection connection("127.0.0.1", server.port());
            EXPECT_TRUE(connection.init()) << c.name;
            std::vector<std::string> got;
            std::string message;
            while (connection.getMessage(message)) {
                got.push_back(message);
            }
            EXPECT_TRUE(got == c.messages) << c.name << ": " << got.size() << " messages";
            message = "kept";
            EXPECT_FALSE(connection.getMessage(message)) << c.name;  // and again, at once
            EXPECT_EQ(message, "kept") << c.name;
        }
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(log(), c.log) << c.name;
    }
}

}  // namespace
