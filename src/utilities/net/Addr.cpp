#include "utilities/net/Addr.h"

#include <arpa/inet.h>
#include <netdb.h>

#include <cassert>
#include <cstring>

#include "utilities/net/SocketExceptions.h"

Addr::Addr() : mImpl(new AddrImpl) {}

Addr::Addr(unsigned short port) : Addr(port, static_cast<unsigned int>(INADDR_ANY)) {}

Addr::Addr(unsigned short port, unsigned int host) : mImpl(new AddrImpl) {
    mImpl->addr.sin_family = AF_INET;
    mImpl->addr.sin_port = htons(port);
    mImpl->addr.sin_addr.s_addr = htonl(host);
}

Addr::Addr(unsigned short port, const std::string& host) : mImpl(new AddrImpl) {
    mImpl->host = host;
    // The player is single-threaded; gethostbyname's static result is copied out at once.
    const hostent* entry = gethostbyname(host.c_str());  // NOLINT(concurrency-mt-unsafe)
    if (entry == nullptr || entry->h_addrtype != AF_INET || entry->h_addr_list[0] == nullptr) {
        throw HostNotFound(entry == nullptr ? h_errno : HOST_NOT_FOUND);
    }
    mImpl->addr.sin_family = AF_INET;
    mImpl->addr.sin_port = htons(port);
    std::memcpy(&mImpl->addr.sin_addr, entry->h_addr_list[0], sizeof(mImpl->addr.sin_addr));
}

Addr::Addr(const sockaddr_in& addr) : mImpl(new AddrImpl) {
    mImpl->addr = addr;
}

AddrImpl& Addr::impl() const {
    assert(mImpl);
    return *mImpl;
}

const std::string& Addr::getHostStr() const {
    AddrImpl& data = impl();
    if (data.host.empty()) {
        char text[INET_ADDRSTRLEN] = {};
        inet_ntop(AF_INET, &data.addr.sin_addr, text, sizeof(text));
        data.host = text;
    }
    return data.host;
}

uint32_t Addr::getHost() const {
    return ntohl(impl().addr.sin_addr.s_addr);
}

uint16_t Addr::getPort() const {
    return ntohs(impl().addr.sin_port);
}

void Addr::setPort(uint16_t port) {
    impl().addr.sin_port = htons(port);
}

const sockaddr_in* Addr::getAddr() const {
    return &impl().addr;
}

sockaddr_in* Addr::getAddr() {
    return &impl().addr;
}

bool Addr::operator==(const Addr& other) const {
    return getHost() == other.getHost() && getPort() == other.getPort();
}

bool Addr::operator<(const Addr& other) const {
    if (getHost() != other.getHost()) {
        return getHost() < other.getHost();
    }
    return getPort() < other.getPort();
}
