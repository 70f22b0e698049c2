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

    /// Ends the thread and waits for that; the client is home again afterwards. Returns whether all of it was done.
    bool finish();

protected:
    void run() override;

private:
    LatteClient& _client;
    QThread* const _home;
    std::atomic<bool> _stopRequested{false};
    std::atomic<bool> _clientIsHome{false};
};
