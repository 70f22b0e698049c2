#pragma once

#include "LatteClientFactory.h"
#include "MmsFarewells.h"

#include <QString>

class DateTimeBuilder;
class HttpClientFactory;
class Logger;
class MemoQueue;
class TcpSocketFactory;
class TimerFactory;

/// Makes the clients of MMS streams. Its end waits a bounded time for what their servers are told last.
class MmsLatteClientFactory : public LatteClientFactory
{
public:
    /// The GUID is what servers know this player by. Factories and queue are borrowed.
    MmsLatteClientFactory(QString const& guid, TimerFactory* timerFactory, TcpSocketFactory* tcpSocketFactory,
                          HttpClientFactory* httpClientFactory, DateTimeBuilder* dateTimeBuilder,
                          MemoQueue* memoQueue);

    LatteClient* createLatteClient(Uri const& uri) override;

    /// Ignores null; warns of a client that is not its own, and leaves that alone.
    void disposeLatteClient(LatteClient* client) override;

private:
    static Logger* log;

    QString const _guid;
    TimerFactory* const _timerFactory;
    TcpSocketFactory* const _tcpSocketFactory;
    HttpClientFactory* const _httpClientFactory;
    DateTimeBuilder* const _dateTimeBuilder;
    MemoQueue* const _memoQueue;
    MmsFarewells _farewells;
};
