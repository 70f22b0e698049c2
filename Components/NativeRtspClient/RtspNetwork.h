#pragma once

#include <QString>

class Logger;

/// What the system's sockets tell about a host. Both functions look up names, which can take long and cannot be
/// interrupted. Any thread.
class RtspNetwork
{
public:
    static bool canResolve(QString const& host);

    /// Whether this machine has an address from which the host could be reached.
    static bool isAvailable(QString const& host, int port);

private:
    static Logger* log;
};
