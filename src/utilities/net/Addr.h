#pragma once

#include <netinet/in.h>

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>

// The shared state of an Addr: the IPv4 socket address (network byte order inside) and the host
// text, either the name given at construction or the dotted quad filled in on demand.
struct AddrImpl {
    sockaddr_in addr{};
    std::string host;
};

// An IPv4 address and port. Copies share one AddrImpl, and with it the cached host text.
class Addr {
public:
    // Family 0, all bytes zero, empty host text.
    Addr();
    // AF_INET, any local interface, the given port.
    explicit Addr(unsigned short port);
    // AF_INET; host in host byte order.
    Addr(unsigned short port, unsigned int host);
    // Keeps host as the host text and resolves it; throws HostNotFound(h_errno) on failure.
    Addr(unsigned short port, const std::string& host);
    explicit Addr(const sockaddr_in& addr);

    // The host text; when empty it is filled with the dotted quad of the address and kept.
    const std::string& getHostStr() const;
    // The IPv4 address in host byte order.
    uint32_t getHost() const;
    // The port in host byte order.
    uint16_t getPort() const;
    void setPort(uint16_t port);
    // The address structure, for socket calls (its length is sizeof(sockaddr_in), 16 bytes).
    const sockaddr_in* getAddr() const;
    sockaddr_in* getAddr();

    // Equal when address and port are equal; the host text does not count.
    bool operator==(const Addr& other) const;
    bool operator!=(const Addr& other) const { return !(*this == other); }
    // By address in host byte order, then by port.
    bool operator<(const Addr& other) const;

private:
    AddrImpl& impl() const;

    boost::shared_ptr<AddrImpl> mImpl;
};
