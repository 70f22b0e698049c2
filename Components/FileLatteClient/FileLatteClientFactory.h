#pragma once

#include "LatteClientFactory.h"

class Logger;

/// Makes the clients of local files.
class FileLatteClientFactory : public LatteClientFactory
{
public:
    LatteClient* createLatteClient(Uri const& uri) override;

    /// Ignores null; warns of a client that is not its own, and leaves that alone.
    void disposeLatteClient(LatteClient* client) override;

private:
    static Logger* log;
};
