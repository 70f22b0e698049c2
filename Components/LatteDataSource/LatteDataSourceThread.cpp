#include "LatteDataSourceThread.h"

#include "LatteClient.h"

#include <QCoreApplication>

LatteDataSource::LatteDataSourceThread::LatteDataSourceThread(LatteClient& client, QThread* home)
    : _client(client), _home(home)
{
}

bool LatteDataSource::LatteDataSourceThread::finish()
{
    _stopRequested = true;
    requestInterruption(); // Whoever handles a flood of data looks at it.
    exit(0);
    return wait() && _clientIsHome;
}

void LatteDataSource::LatteDataSourceThread::run()
{
    _client.startBuffering();
    if (!_stopRequested)
        exec();
    _client.stopBuffering();
    // What the client deleted later must be gone before its thread is.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    _client.moveToThread(_home); // Only an object's own thread can send it elsewhere.
    _clientIsHome = true;
}
