#pragma once

#include "FixedChance.h"
#include "Latte.h"
#include "LatteDataSource.h"
#include "LocalServices.h"
#include "LocalServicesOptions.h"
#include "MmsLatteClientFactory.h"
#include "MonotonicTickCounter.h"
#include "QtDateTimeBuilder.h"
#include "QtHttpClientFactory.h"
#include "QtTcpSocketFactory.h"
#include "QtTimerFactory.h"
#include "SystemTickCounter.h"

#include <QStringList>
#include <QThread>

#include <atomic>
#include <memory>

/// The stream servers with a broadcast "/live", which can be killed and started again on the same ports.
class StreamServers
{
public:
    explicit StreamServers(QStringList const& films);

    void start();
    /// Nobody is told: the sockets close.
    void kill() { _services.reset(); }

    /// As on the control port, and as the switch --fault does it: also at each later start.
    void setCommands(QStringList const& commands) { _options.commands = commands; }

    /// Does what a line on the control port asks for; the words of what went wrong, or nothing.
    QString run(QString const& command) { return _services->commands().run(command).error; }

    QString overHttp() const { return address(*_options.mmsHttpPort); }
    QString overTcp() const { return address(*_options.mmsTcpPort); }
    /// A document of that ending, such as ".asx", about the broadcast.
    QString document(QString const& ending) const;

private:
    static QString address(quint16 port) { return QStringLiteral("mms://127.0.0.1:%1/live").arg(port); }

    SystemTickCounter _ticks;
    QtTimerFactory _timers;
    LocalServicesOptions _options;
    std::unique_ptr<LocalServices> _services;
};

/// A clock that is so fast that all play counts as lasting.
class HurriedTickCounter : public TickCounter
{
public:
    qint64 msSinceEpoch() override { return _clock.msSinceEpoch() * 1'000'000; }

private:
    MonotonicTickCounter _clock;
};

/// Clients that go by that clock when they reconnect.
class HurriedClientFactory : public MmsLatteClientFactory
{
public:
    using MmsLatteClientFactory::MmsLatteClientFactory;
    LatteClient* createLatteClient(Uri const& uri) override;

private:
    HurriedTickCounter _clock;
    FixedChance _chance;
};

/// What turns an address into a source, as the program puts it together.
class LiveNetwork
{
public:
    LiveNetwork();

    Latte* latte() { return &_latte; }

private:
    QtTimerFactory _timers;
    QtTcpSocketFactory _sockets;
    QtHttpClientFactory _http;
    QtDateTimeBuilder _dates;
    HurriedClientFactory _clients;
    Latte _latte;
};

/// An open stream whose packets are read on a thread of their own and counted.
class LiveStream
{
public:
    LiveStream(LiveNetwork& network, QString const& address);
    ~LiveStream();

    /// How often it has opened: again for each change of the stream's header.
    int openings() const { return _openings; }
    /// How often it has begun to play: again after each loss.
    int plays() const { return _plays; }
    int videoFrames() const { return _videoFrames; }
    /// Whether a picture had an earlier time than the one before.
    bool wentBackwards() const { return _wentBackwards; }
    QStringList const& progress() const { return _progress; }
    QStringList const& errors() const { return _errors; }

    void close();

private:
    void read();
    void stopReading();

    std::unique_ptr<LatteDataSource> _source;
    QStringList _progress;
    QStringList _errors;
    int _openings = 0;
    int _plays = 0;
    std::atomic<bool> _ends{false};
    std::atomic<int> _videoFrames{0};
    std::atomic<bool> _wentBackwards{false};
    std::unique_ptr<QThread> _reader; ///< Once the source has opened.
};
