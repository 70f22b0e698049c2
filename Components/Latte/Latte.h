#pragma once

#include "UriScheme.h"

#include <QHash>
#include <QObject>

class LatteClient;
class LatteClientFactory;
class Logger;
class Uri;

/// The registry that says which client opens the addresses of a scheme. Lives on the GUI thread.
class Latte : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Inserts or replaces; the factory must outlive this object.
    void registerLatteClientFactory(UriScheme const& scheme, LatteClientFactory* factory);
    bool hasClientFactory(UriScheme const& scheme) const;

    /// A client for the address, to be given back with close(); null for an unknown scheme.
    /// Throws what the factory throws.
    LatteClient* open(Uri const& uri);
    void close(LatteClient* client);

private:
    static Logger* log;

    QHash<UriScheme, LatteClientFactory*> _factories;
};
