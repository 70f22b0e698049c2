#pragma once

class MmsClient;
class QObject;

/// Makes MMS transports and takes them back.
class MmsClientFactory
{
public:
    virtual ~MmsClientFactory() = default;

    /// A new, unconnected client on the calling thread.
    virtual MmsClient* createMmsClient(QObject* parent) = 0;

    /// Takes back a client that this factory created: it is silent from now on, leaves its server and is deleted
    /// later. Null is ignored.
    virtual void disposeMmsClient(MmsClient* client) = 0;
};
