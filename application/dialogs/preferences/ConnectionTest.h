#pragma once

#include "NetworkTest.h"
#include "Uri.h"

#include <QElapsedTimer>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>

class TimerFactory;

/// Tries whether the service can be reached, and says in words how that went: first whether this machine has a way to
/// its next host, then with a request. Everything is asynchronous; on the GUI thread.
class ConnectionTest : public QObject
{
    Q_OBJECT

public:
    static constexpr int limit = 10000; ///< ms for the service to answer.

    /// The factory is borrowed.
    explicit ConnectionTest(TimerFactory* timers, QObject* parent = nullptr);

    /// In place of one that runs.
    void start(Uri const& service, QNetworkProxy const& proxy);
    /// Ends it without a word.
    void cancel();
    bool isRunning() const { return _isRunning; }

signals:
    void finished(bool isReachable, QString words);

private:
    void onNetwork(bool isAvailable);
    void onAnswer();
    void finish(bool isReachable, QString const& words);
    QString wordsFor(QNetworkReply::NetworkError error) const;

    NetworkTest _network;
    QNetworkAccessManager _manager;
    QPointer<QNetworkReply> _reply;
    QElapsedTimer _time;
    QUrl _service;
    QNetworkProxy _proxy;
    bool _isRunning = false;
};
