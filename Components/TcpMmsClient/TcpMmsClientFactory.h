#pragma once

#include "MmsClientFactory.h"

#include <QString>

class DateTimeBuilder;
class Logger;
class MemoQueue;
class MmsFarewells;
class TcpSocketFactory;
class TimerFactory;

/// Makes TcpMmsClients.
class TcpMmsClientFactory : public MmsClientFactory
{
public:
    /// What the clients are made of, see TcpMmsClient; borrowed.
    TcpMmsClientFactory(QString const& guid, TcpSocketFactory* tcpSocketFactory, TimerFactory* timerFactory,
                        DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue);

    /// Gives this to the clients; borrowed, null for none.
    void setFarewells(MmsFarewells* farewells) { _farewells = farewells; }

    MmsClient* createMmsClient(QObject* parent) override;

    /// Disconnects the client as well. Warns of a client that is not a TcpMmsClient, and leaves that alone.
    void disposeMmsClient(MmsClient* client) override;

private:
    static Logger* log;

    QString const _guid;
    TcpSocketFactory* const _tcpSocketFactory;
    TimerFactory* const _timerFactory;
    DateTimeBuilder* const _dateTimeBuilder;
    MemoQueue* const _memoQueue;
    MmsFarewells* _farewells = nullptr;
};
