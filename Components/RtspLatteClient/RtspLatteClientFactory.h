#pragma once

#include "LatteClientFactory.h"

class Logger;
class RtspClientFactory;
class TimerFactory;

/// Makes the clients of RTSP addresses.
class RtspLatteClientFactory : public LatteClientFactory
{
public:
    /// Both factories must outlive this one.
    RtspLatteClientFactory(RtspClientFactory* clientFactory, TimerFactory* timerFactory)
        : _clientFactory(clientFactory), _timerFactory(timerFactory)
    {
    }

    LatteClient* createLatteClient(Uri const& uri) override;

    /// Ignores null; warns of a client that is not its own, and leaves that alone.
    void disposeLatteClient(LatteClient* client) override;

private:
    static Logger* log;

    RtspClientFactory* const _clientFactory;
    TimerFactory* const _timerFactory;
};
