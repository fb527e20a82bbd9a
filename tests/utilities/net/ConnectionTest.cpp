#include "utilities/net/Connection.h"

#include <chrono>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/ClosedPort.h"
#include "support/ScriptedServer.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Logger.h"
#include "utilities/net/SocketExceptions.h"

namespace {

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;
using Kind = ScriptedServer::EventKind;

class LogString : public LogStream {
public:
    LogString() : LogStream(&text, nullptr) {}
    std::ostringstream text;
};

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
        ConfigFile& server = config["ServerInitialize"];
        server.addGroup("Server");
        server["Server"].add("OfflinePlaying", "false");
        server.addGroup("Connection");
        server["Connection"].add("HostName", "127.0.0.1");
        server["Connection"].add("Port", "3100");
        main = new LogString;
        logger.add("Main", main, false);
    }
    void TearDown() override {
        testing::internal::CaptureStdout();
        Connection::resetState();
        testing::internal::GetCapturedStdout();
        Logger::resetState();
        Config::resetState();
    }

    static void setOffline(bool offline) {
        config["ServerInitialize"]["Server"].add("OfflinePlaying", offline ? "true" : "false");
    }

    // A connection to `server`, set up with its console line swallowed.
    static std::unique_ptr<Connection> connectTo(const ScriptedServer& server) {
        auto connection = std::make_unique<Connection>("127.0.0.1", server.port());
        testing::internal::CaptureStdout();
        const bool connected = connection->init();
        testing::internal::GetCapturedStdout();
        EXPECT_TRUE(connected);
        return connection;
    }

    // Deletes the connection without its console line.
    static void closeQuietly(std::unique_ptr<Connection>& connection) {
        testing::internal::CaptureStdout();
        connection.reset();
        testing::internal::GetCapturedStdout();
    }

    // Reads messages until getMessage fails.
    static std::vector<std::string> readAll(Connection& connection) {
        std::vector<std::string> messages;
        std::string message;
        while (connection.getMessage(message)) {
            messages.push_back(message);
        }
        return messages;
    }

    std::string log() const { return main->text.str(); }

    LogString* main = nullptr;
};

// --- set-up and console messages -------------------------------------------------------------

TEST_F(ConnectionTest, InitConnectsAndAnnouncesTheTarget) {
    ScriptedServer server(ServerScript().expectClose());
    Connection connection("127.0.0.1", server.port());
    EXPECT_FALSE(connection.getSocket().isConnected());  // no traffic before init

    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_TRUE(connection.init());
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Connecting to TCP 127.0.0.1:" + std::to_string(server.port()) + "\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(connection.getSocket().isConnected());
    EXPECT_EQ(connection.getSocket().getPeer().getPort(), server.port());
}

TEST_F(ConnectionTest, DestructorClosesThenSaysSo) {
    ScriptedServer server(ServerScript().expectClose());
    auto connection = connectTo(server);
    testing::internal::CaptureStdout();
    connection.reset();
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Closing Connection to 127.0.0.1:" + std::to_string(server.port()) + "\n");
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(server.events().back().kind, Kind::Closed);
    EXPECT_EQ(server.events()[1].kind, Kind::ClientClosed) << server.describeEvents();
}

TEST_F(ConnectionTest, RefusedConnectionIsReportedAndClosesTheSocket) {
    const support::ClosedPort closed;
    Connection connection("127.0.0.1", closed.port());
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(connection.init());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Connection failed with: 'Connection refused'\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Connecting to TCP 127.0.0.1:" + std::to_string(closed.port()) + "\n");
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

TEST_F(ConnectionTest, BindFailureIsReportedAndClosesTheSocket) {
    ScriptedServer server(ServerScript().expectClose());
    auto connection = connectTo(server);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(connection->init());  // a connected socket cannot be bound again
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Failed to bind socket with 'Invalid argument'\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Connecting to TCP 127.0.0.1:" + std::to_string(server.port()) + "\n");
    EXPECT_FALSE(connection->getSocket().isOpen());
    closeQuietly(connection);
}

TEST_F(ConnectionTest, UnknownHostLeavesInit) {
    // A name the resolver rejects without asking anyone (a label of more than 63 characters).
    Connection connection(std::string(70, 'a') + ".invalid", 3100);
    testing::internal::CaptureStdout();
    EXPECT_THROW(connection.init(), HostNotFound);
    testing::internal::GetCapturedStdout();
}

// --- the process-wide instance ---------------------------------------------------------------

TEST_F(ConnectionTest, InstanceIsCreatedOnceFromTheConfiguration) {
    ScriptedServer server(ServerScript().sendFrame("(time (now 0.02))"));
    config["ServerInitialize"]["Connection"].add("Port", std::to_string(server.port()));
    Connection* first = Connection::instance();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->getHost(), "127.0.0.1");
    EXPECT_EQ(first->getPort(), server.port());

    config["ServerInitialize"]["Connection"].add("Port", "1");  // never reread
    EXPECT_EQ(Connection::instance(), first);
    testing::internal::CaptureStdout();
    EXPECT_TRUE(Connection::instance()->init());
    testing::internal::GetCapturedStdout();
    std::string message;
    EXPECT_TRUE(Connection::instance()->getMessage(message));
    EXPECT_EQ(message, "(time (now 0.02))");

    // The loop deletes the instance when it ends; that forgets it.
    testing::internal::CaptureStdout();
    delete Connection::instance();
    testing::internal::GetCapturedStdout();
    Connection* next = Connection::instance();
    EXPECT_EQ(next->getPort(), 1u);
    Connection::resetState();
    Connection::resetState();  // nothing left to delete
}

// --- receiving -------------------------------------------------------------------------------

TEST_F(ConnectionTest, ReadsFramesInOrderThenEndsQuietly) {
    ScriptedServer server(ServerScript()
                              .sendFrame("(time (now 46.20))")
                              .sendFrame("(GS (t 0.00) (pm BeforeKickOff))")
                              .close());
    auto connection = connectTo(server);
    std::string message;
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_EQ(message, "(time (now 46.20))");
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_EQ(message, "(GS (t 0.00) (pm BeforeKickOff))");
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(message, "(GS (t 0.00) (pm BeforeKickOff))");  // untouched
    EXPECT_FALSE(connection->getMessage(message));           // and again, without waiting
    EXPECT_EQ(log(), "");  // a clean end of stream is the normal end
    closeQuietly(connection);
}

TEST_F(ConnectionTest, ZeroLengthFrameIsAnEmptyMessage) {
    ScriptedServer server(ServerScript().sendFrame("").sendFrame("(syn)"));
    auto connection = connectTo(server);
    std::string message = "previous";
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_EQ(message, "");
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_EQ(message, "(syn)");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, FramesSplitAcrossSegmentsAreJoinedInOrder) {
    const std::string stream = frame("(time (now 46.20))(GS (t 0.00) (pm BeforeKickOff))") +
                               frame("(GYR (n torso) (rt 0.01 0.07 0.46))");
    ScriptedServer server(ServerScript()
                              .sendRaw(stream.substr(0, 9))
                              .sleep(Millis(20))
                              .sendRaw(stream.substr(9, 40))
                              .sleep(Millis(20))
                              .sendRaw(stream.substr(49, 10))
                              .sleep(Millis(20))
                              .sendRaw(stream.substr(59)));
    auto connection = connectTo(server);
    EXPECT_EQ(readAll(*connection),
              (std::vector<std::string>{"(time (now 46.20))(GS (t 0.00) (pm BeforeKickOff))",
                                        "(GYR (n torso) (rt 0.01 0.07 0.46))"}));
    EXPECT_EQ(log(), "");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, PrefixBytesArrivingOneAtATime) {
    const std::string framed = frame(pattern(300));
    ServerScript script;
    for (int i = 0; i < 4; ++i) {
        script.sendRaw(framed.substr(static_cast<size_t>(i), 1)).sleep(Millis(15));
    }
    script.sendRaw(framed.substr(4)).sendFrame("(syn)");
    ScriptedServer server(script);
    auto connection = connectTo(server);
    EXPECT_EQ(readAll(*connection), (std::vector<std::string>{pattern(300), "(syn)"}));
    EXPECT_EQ(log(), "");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, SeveralFramesInOneSegmentStayApart) {
    ScriptedServer server(
        ServerScript().sendRaw(frame("(time (now 1.00))") + frame("") + frame("(hear)")));
    auto connection = connectTo(server);
    EXPECT_EQ(readAll(*connection), (std::vector<std::string>{"(time (now 1.00))", "", "(hear)"}));
    closeQuietly(connection);
}

TEST_F(ConnectionTest, MessageIsCutAtItsFirstZeroByte) {
    ScriptedServer server(ServerScript()
                              .sendFrame(std::string("(See (B (pol 1 2 3)))\0junk", 26))
                              .sendFrame("(syn)"));
    auto connection = connectTo(server);
    EXPECT_EQ(readAll(*connection), (std::vector<std::string>{"(See (B (pol 1 2 3)))", "(syn)"}));
    closeQuietly(connection);
}

TEST_F(ConnectionTest, MessagesAroundTheBufferSizeArriveWholeAndInStep) {
    // The last byte of the largest buffered message, a message that only just does not fit the
    // buffer, a larger one, then shorter ones (no left-overs of a longer message may show).
    const std::vector<std::string> sent{pattern(Connection::kBufferBytes - 1),
                                        pattern(Connection::kBufferBytes) + "!",
                                        pattern(Connection::kBufferBytes),
                                        pattern(20000),
                                        "(syn)",
                                        pattern(Connection::kBufferBytes - 1),
                                        "x"};
    ServerScript script;
    for (const std::string& message : sent) {
        script.sendFrame(message);
    }
    ScriptedServer server(script);
    auto connection = connectTo(server);
    const std::vector<std::string> got = readAll(*connection);
    ASSERT_EQ(got.size(), sent.size());
    for (size_t i = 0; i < sent.size(); ++i) {
        EXPECT_EQ(got[i].size(), sent[i].size()) << "message " << i;
        EXPECT_TRUE(got[i] == sent[i]) << "message " << i;
    }
    EXPECT_EQ(log(), "");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, OversizedMessageIsDroppedAndTheNextOneRead) {
    const std::string largest = pattern(Connection::kMaxMessageBytes);
    ScriptedServer server(ServerScript()
                              .sendFrame(largest)
                              .sendFrame(pattern(Connection::kMaxMessageBytes + 1))
                              .sendFrame("(time (now 2.00))"));
    auto connection = connectTo(server);
    std::string message;
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_TRUE(message == largest);
    EXPECT_EQ(log(), "");
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_EQ(message, "(time (now 2.00))");
    EXPECT_EQ(log(), "Connection: dropped a message of 1048577 bytes (more than 1048576)\n");
    EXPECT_FALSE(connection->getMessage(message));
    closeQuietly(connection);
}

TEST_F(ConnectionTest, EndOfStreamInsideAPayloadFailsAndIsLogged) {
    ScriptedServer server(
        ServerScript().sendFrame("(syn)").sendRaw(frame(pattern(100)).substr(0, 9)));
    auto connection = connectTo(server);
    std::string message;
    ASSERT_TRUE(connection->getMessage(message));
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(message, "(syn)");
    EXPECT_EQ(log(), "Connection: message broken off after 5 of 100 bytes (end of stream)\n");
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(log(), "Connection: message broken off after 5 of 100 bytes (end of stream)\n");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, EndOfStreamInsideALargePayloadFailsAndIsLogged) {
    ScriptedServer server(ServerScript().sendRaw(frame(pattern(50000)).substr(0, 30004)));
    auto connection = connectTo(server);
    std::string message = "kept";
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(message, "kept");
    EXPECT_EQ(log(), "Connection: message broken off after 30000 of 50000 bytes (end of stream)\n");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, EndOfStreamInsideAnOversizedPayloadFailsAndIsLogged) {
    const std::string oversized = frame(pattern(2 * Connection::kMaxMessageBytes));
    ScriptedServer server(ServerScript().sendRaw(oversized.substr(0, 4 + 40000)));
    auto connection = connectTo(server);
    std::string message = "kept";
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(message, "kept");
    EXPECT_EQ(log(),
              "Connection: oversized message broken off after 40000 of 2097152 bytes (end of "
              "stream)\n");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, EndOfStreamInsideTheLengthFailsAndIsLogged) {
    ScriptedServer server(ServerScript().sendRaw(std::string("\0\0", 2)));
    auto connection = connectTo(server);
    std::string message = "kept";
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(message, "kept");
    EXPECT_EQ(log(), "Connection: message length broken off after 2 of 4 bytes (end of stream)\n");
    closeQuietly(connection);
}

TEST_F(ConnectionTest, ResetInsideAPayloadFailsAndIsLogged) {
    ScriptedServer server(
        ServerScript().sendRaw(frame(pattern(100)).substr(0, 9)).sleep(Millis(50)).reset());
    auto connection = connectTo(server);
    std::string message = "kept";
    EXPECT_FALSE(connection->getMessage(message));
    EXPECT_EQ(message, "kept");
    EXPECT_EQ(log(),
              "Connection: message broken off after 5 of 100 bytes (Connection reset by peer)\n");
    closeQuietly(connection);
}

// --- sending ---------------------------------------------------------------------------------

TEST_F(ConnectionTest, SendFramesWithABigEndianLength) {
    ScriptedServer server(ServerScript().expectClose());
    auto connection = connectTo(server);
    const std::string scene = "(scene rsg/agent/nao/nao.rsg)";
    const std::string longer = pattern(300);
    const std::string longest = pattern(70000);
    connection->sendMessage(scene);
    connection->sendMessage(longer);
    connection->sendMessage(longest);
    closeQuietly(connection);
    ASSERT_TRUE(server.wait());
    const std::string expected = std::string("\x00\x00\x00\x1D", 4) + scene +
                                 std::string("\x00\x00\x01\x2C", 4) + longer +
                                 std::string("\x00\x01\x11\x70", 4) + longest;
    EXPECT_TRUE(server.rawReceived() == expected);
    EXPECT_EQ(server.frames(), (std::vector<std::string>{scene, longer, longest}));
    EXPECT_EQ(log(), "");
}

TEST_F(ConnectionTest, EmptyMessagesAndOfflinePlayWriteNothing) {
    ScriptedServer server(ServerScript().expectClose());
    auto connection = connectTo(server);
    connection->sendMessage("");
    setOffline(true);
    connection->sendMessage("(beam -1 0 0)");
    connection->sendMessage("");
    setOffline(false);  // looked up on every call
    connection->sendMessage("(syn)");
    closeQuietly(connection);
    ASSERT_TRUE(server.wait());
    EXPECT_EQ(server.rawReceived(), frame("(syn)"));
}

TEST_F(ConnectionTest, SendingToAClosedServerIsLoggedNotFatal) {
    ScriptedServer server(ServerScript().close());
    auto connection = connectTo(server);
    std::string message;
    EXPECT_FALSE(connection->getMessage(message));  // the server has gone
    // The first write may still be accepted locally; the reset that answers it makes a later
    // one fail. Either way the player lives on.
    for (int attempt = 0; attempt < 200 && log().empty(); ++attempt) {
        connection->sendMessage("(he1 1.5)");
        std::this_thread::sleep_for(Millis(5));
    }
    const std::string line = log();
    EXPECT_TRUE(line == "Connection: sending failed after 0 of 13 bytes: Broken pipe\n" ||
                line ==
                    "Connection: sending failed after 0 of 13 bytes: Connection reset by peer\n")
        << line;
    closeQuietly(connection);
}

// --- a whole session in lock step ------------------------------------------------------------

TEST_F(ConnectionTest, RecordedMessagesInLockStepArriveByteForByte) {
    const std::vector<std::string> recorded = ServerScript::readMessages(
        std::string(KORVEL_TEST_DATA_DIR) + "/server-messages-sample.txt");
    ASSERT_EQ(recorded.size(), 73u);
    ScriptedServer server(ServerScript::lockStep(recorded, Millis(3000)));
    auto connection = connectTo(server);
    std::vector<std::string> received;
    std::vector<std::string> replies;
    std::string message;
    while (connection->getMessage(message)) {
        received.push_back(message);
        replies.push_back("(reply " + std::to_string(received.size()) + ")");
        connection->sendMessage(replies.back());
    }
    ASSERT_TRUE(server.wait());
    EXPECT_TRUE(received == recorded);
    EXPECT_EQ(server.frames(), replies);
    // Each reply comes right after the message it answers.
    const auto events = server.events();
    ASSERT_EQ(events.size(), 2 + 2 * recorded.size()) << server.describeEvents();
    for (size_t i = 0; i < recorded.size(); ++i) {
        EXPECT_EQ(events[1 + 2 * i].kind, Kind::Sent);
        EXPECT_EQ(events[2 + 2 * i].kind, Kind::Received);
        EXPECT_EQ(events[2 + 2 * i].data, replies[i]);
    }
    closeQuietly(connection);
}

}  // namespace
