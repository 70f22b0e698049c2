#include "RtspNetwork.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <memory>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

Logger* RtspNetwork::log = LoggerManager::logger();

namespace
{

struct AddressDeleter {
    void operator()(addrinfo* list) const { freeaddrinfo(list); }
};
using Addresses = std::unique_ptr<addrinfo, AddressDeleter>;

Addresses lookUp(QString const& host, int port, int& error)
{
    addrinfo hints{};
    hints.ai_socktype = SOCK_DGRAM;
    addrinfo* list = nullptr;
    error = getaddrinfo(host.toUtf8().constData(), QByteArray::number(port).constData(), &hints, &list);
    return Addresses(error == 0 ? list : nullptr);
}

} // namespace

bool RtspNetwork::canResolve(QString const& host)
{
    int error = 0;
    return !host.isEmpty() && lookUp(host, 0, error);
}

bool RtspNetwork::isAvailable(QString const& host, int port)
{
    int error = 0;
    Addresses const addresses = lookUp(host, port, error);
    if (!addresses) {
        LOG_WARNING("Couldn't get address info for host %s error %s", qPrintable(host), gai_strerror(error));
        return false;
    }
    for (addrinfo const* address = addresses.get(); address; address = address->ai_next) {
        int const descriptor = socket(address->ai_family, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        if (descriptor < 0)
            continue;
        // Connecting a datagram socket sends nothing, it only chooses a route.
        bool const connected = connect(descriptor, address->ai_addr, address->ai_addrlen) == 0;
        sockaddr_storage own{};
        socklen_t size = sizeof own;
        bool const named = connected && getsockname(descriptor, reinterpret_cast<sockaddr*>(&own), &size) == 0;
        close(descriptor);
        if (named)
            return true;
        LOG_WARNING("%s", connected ? "could not get socket name" : "could not connected");
    }
    return false;
}
