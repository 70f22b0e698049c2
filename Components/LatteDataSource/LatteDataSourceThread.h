#pragma once

#include "LatteDataSource.h"

#include <QThread>

/// The home of a client while it delivers.
class LatteDataSource::LatteDataSourceThread : public QThread
{
    Q_OBJECT

public:
    /// `home` is the thread that the client returns to at the end.
    LatteDataSourceThread(LatteClient& client, QThread* home);

    void requestStop() { _stopRequested = true; }

protected:
    void run() override;

private:
    LatteClient& _client;
    QThread* const _home;
    std::atomic<bool> _stopRequested{false};
};
