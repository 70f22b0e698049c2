#pragma once

#include "MmsClientFactory.h"

#include <QString>

class DateTimeBuilder;
class HttpClientFactory;
class MemoQueue;
class MmsFarewells;
class TimerFactory;

/// Makes HttpMmsClients. What it is given is borrowed, and handed on to them.
class HttpMmsClientFactory : public MmsClientFactory
{
public:
    HttpMmsClientFactory(QString const& guid, HttpClientFactory* httpClientFactory, TimerFactory* timerFactory,
                         DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue);

    /// Gives this to the clients; borrowed, null for none.
    void setFarewells(MmsFarewells* farewells) { _farewells = farewells; }

    MmsClient* createMmsClient(QObject* parent) override;
    void disposeMmsClient(MmsClient* client) override;

private:
    QString const _guid;
    HttpClientFactory* const _httpClientFactory;
    TimerFactory* const _timerFactory;
    DateTimeBuilder* const _dateTimeBuilder;
    MemoQueue* const _memoQueue;
    MmsFarewells* _farewells = nullptr;
};
