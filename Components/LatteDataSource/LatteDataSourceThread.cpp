#include "LatteDataSourceThread.h"

#include "LatteClient.h"

#include <QCoreApplication>

LatteDataSource::LatteDataSourceThread::LatteDataSourceThread(LatteClient& client, QThread* home)
    : _client(client), _home(home)
{
}

void LatteDataSource::LatteDataSourceThread::run()
{
    _client.startBuffering();
    if (!_stopRequested)
        exec();
    _client.stopBuffering();
    // Only an object's own thread can send it elsewhere.
    _client.moveToThread(_home);
    // What the client deleted later must be gone before its thread is.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
