#pragma once

class QObject;
class RtspClient;

/// Makes RTSP clients and takes them back. Any thread.
class RtspClientFactory
{
public:
    virtual ~RtspClientFactory() = default;

    /// A new client on the calling thread.
    virtual RtspClient* createRtspClient(QObject* parent) = 0;

    /// Takes back a client that this factory created: it is silent from now on and deleted later. Null is ignored.
    virtual void disposeRtspClient(RtspClient* client) = 0;
};
