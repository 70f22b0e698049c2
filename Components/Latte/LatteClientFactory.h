#pragma once

class LatteClient;
class Uri;

/// Makes the clients of one scheme.
class LatteClientFactory
{
public:
    virtual ~LatteClientFactory() = default;

    /// A client for the address, to be given back; throws std::invalid_argument for one that cannot be opened.
    virtual LatteClient* createLatteClient(Uri const& uri) = 0;
    virtual void disposeLatteClient(LatteClient* client) = 0;
};
