#pragma once

#include "BiscottiSubscriber.h"
#include "BiscottiToolOptions.h"
#include "CentralisedBiscotti.h"
#include "MonotonicTickCounter.h"
#include "ObservedTcpSocketFactory.h"
#include "QtTimerFactory.h"
#include "SortedMemoQueue.h"
#include "TrieBiscottiSubscriptionEngine.h"

#include <QObject>

/// One run of ombravision-biscotti: posts, or subscribes and prints. All of it on the main thread.
class BiscottiTool : public QObject, public BiscottiSubscriber
{
    Q_OBJECT

public:
    enum Status { Done = 0, WrongOptions = 1, NoServer = 2, Refused = 3 };

    explicit BiscottiTool(BiscottiToolOptions const& options);
    ~BiscottiTool() override;

    /// Begins; finished() follows.
    void start();

    /// Ends as asked for by a signal.
    void interrupt();

    BiscottiSubscriberId biscottiSubscriberId() const override;
    void handleBiscottiPost(BiscottiPost const& post) override;

signals:
    void finished(int status);

private:
    void post();
    void subscribe();
    void onSubscribed(BiscottiSubscription const& subscription);
    void onStateChanged(Biscotti::BiscottiState state);
    void onSocketError(QString const& text);
    void onTimeout();
    void refused(char const* what, int code, QString const& text);
    void finish(int status);
    static void tell(QString const& text);
    bool isPosting() const { return _options.command == BiscottiToolOptions::Command::Post; }
    QString server() const { return QStringLiteral("%1:%2").arg(_options.host).arg(_options.port); }

    BiscottiToolOptions const _options;
    MonotonicTickCounter _clock;
    QtTimerFactory _timers;
    SortedMemoQueue _memos{&_clock, &_timers};
    ObservedTcpSocketFactory _sockets;
    TrieBiscottiSubscriptionEngine _engine;
    CentralisedBiscotti _biscotti;
    bool _wasConnected = false;
    bool _isFinished = false;
    int _printed = 0;
};
