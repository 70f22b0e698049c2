#pragma once

#include "RtspClientFactory.h"

#include <memory>

class Logger;
class RtspWorkers;

/// Makes RTSP clients over FFmpeg. They may outlive it, and their threads too.
class NativeRtspClientFactory : public RtspClientFactory
{
public:
    static constexpr int farewell = 1000; ///< ms that the end of the factory waits for threads at work.

    NativeRtspClientFactory();
    ~NativeRtspClientFactory() override;

    RtspClient* createRtspClient(QObject* parent) override;

    /// Warns of a client that is not its own, and leaves that alone.
    void disposeRtspClient(RtspClient* client) override;

    RtspWorkers& workers() const { return *_workers; }

private:
    static Logger* log;

    std::shared_ptr<RtspWorkers> const _workers;
};
