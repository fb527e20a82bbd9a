#include "utilities/net/Addr.h"

#include <arpa/inet.h>
#include <netdb.h>

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "utilities/net/SocketExceptions.h"

namespace {

// A name the resolver rejects locally (a label longer than 63 characters), so no query leaves
// the machine.
std::string unresolvableName() {
    return std::string(70, 'a') + ".invalid";
}

TEST(AddrTest, DefaultIsAllZero) {
    const Addr addr;
    const auto* raw = reinterpret_cast<const unsigned char*>(addr.getAddr());
    for (size_t i = 0; i < sizeof(sockaddr_in); ++i) {
        EXPECT_EQ(raw[i], 0) << "byte " << i;
    }
    EXPECT_EQ(addr.getHost(), 0u);
    EXPECT_EQ(addr.getPort(), 0u);
}

TEST(AddrTest, PortOnlyMeansAnyInterface) {
    const Addr addr(3100);
    EXPECT_EQ(addr.getAddr()->sin_family, AF_INET);
    EXPECT_EQ(addr.getAddr()->sin_port, htons(3100));
    EXPECT_EQ(addr.getAddr()->sin_addr.s_addr, htonl(INADDR_ANY));
    EXPECT_EQ(addr.getHostStr(), "0.0.0.0");
}

TEST(AddrTest, NumericHostIsStoredInNetworkOrderAndShownDotted) {
    const Addr addr(3100, 0x7F000001u);
    EXPECT_EQ(addr.getAddr()->sin_family, AF_INET);
    const auto* bytes = reinterpret_cast<const unsigned char*>(&addr.getAddr()->sin_addr);
    EXPECT_EQ(bytes[0], 127);
    EXPECT_EQ(bytes[3], 1);
    const auto* port = reinterpret_cast<const unsigned char*>(&addr.getAddr()->sin_port);
    EXPECT_EQ(port[0], 0x0C);  // 3100 = 0x0C1C, big-endian on the wire
    EXPECT_EQ(port[1], 0x1C);
    EXPECT_EQ(addr.getHost(), 0x7F000001u);
    EXPECT_EQ(addr.getPort(), 3100u);
    EXPECT_EQ(addr.getHostStr(), "127.0.0.1");
    EXPECT_EQ(Addr(0, 0xC0A80A05u).getHostStr(), "192.168.10.5");
}

TEST(AddrTest, HostNameIsResolvedAndKeptAsGiven) {
    const Addr addr(3100, std::string("localhost"));
    EXPECT_EQ(addr.getHostStr(), "localhost");
    EXPECT_EQ(addr.getHost(), 0x7F000001u);
    EXPECT_EQ(addr.getPort(), 3100u);
    EXPECT_EQ(addr.getAddr()->sin_family, AF_INET);
}

TEST(AddrTest, UnresolvableHostThrowsHostNotFound) {
    try {
        const Addr addr(3100, unresolvableName());
        FAIL() << "resolved " << addr.getHostStr();
    } catch (const HostNotFound& e) {
        EXPECT_STREQ(e.what(), "Network error");
        EXPECT_NE(e.err(), 0);
    }
}

TEST(AddrTest, CopiesShareTheHostTextCache) {
    const Addr original(7, 0x0A000001u);
    const Addr copy = original;  // NOLINT(performance-unnecessary-copy-initialization)
    EXPECT_EQ(copy.getAddr(), original.getAddr());
    EXPECT_EQ(&copy.getHostStr(), &original.getHostStr());
    EXPECT_EQ(original.getHostStr(), "10.0.0.1");
}

TEST(AddrTest, SetPortChangesOnlyThePort) {
    Addr addr(1, 0x7F000001u);
    const Addr shared = addr;
    addr.setPort(65535);
    EXPECT_EQ(addr.getPort(), 65535u);
    EXPECT_EQ(shared.getPort(), 65535u);  // one implementation behind both
    EXPECT_EQ(addr.getHost(), 0x7F000001u);
}

TEST(AddrTest, EqualityIgnoresHostText) {
    const Addr byName(3100, std::string("localhost"));
    const Addr byNumber(3100, 0x7F000001u);
    EXPECT_TRUE(byName == byNumber);
    EXPECT_FALSE(byName != byNumber);
    EXPECT_FALSE(byName == Addr(3101, 0x7F000001u));
    EXPECT_FALSE(byName == Addr(3100, 0x7F000002u));
}

TEST(AddrTest, OrderIsByHostThenPort) {
    const Addr lowHostHighPort(9000, 0x0A000001u);
    const Addr highHostLowPort(1, 0x0A000002u);
    EXPECT_TRUE(lowHostHighPort < highHostLowPort);
    EXPECT_FALSE(highHostLowPort < lowHostHighPort);
    EXPECT_TRUE(Addr(1, 0x0A000001u) < Addr(2, 0x0A000001u));
    EXPECT_FALSE(Addr(2, 0x0A000001u) < Addr(2, 0x0A000001u));
    // Host order is numeric in host byte order, not by the bytes in memory.
    EXPECT_TRUE(Addr(0, 0x01000002u) < Addr(0, 0x02000001u));
}

TEST(AddrTest, FromSockaddrCopiesTheStructure) {
    sockaddr_in raw{};
    raw.sin_family = AF_INET;
    raw.sin_port = htons(4242);
    raw.sin_addr.s_addr = htonl(0x7F000001u);
    const Addr addr(raw);
    EXPECT_EQ(std::memcmp(addr.getAddr(), &raw, sizeof(raw)), 0);
    EXPECT_EQ(addr.getHostStr(), "127.0.0.1");
    EXPECT_EQ(addr.getPort(), 4242u);
}

}  // namespace
