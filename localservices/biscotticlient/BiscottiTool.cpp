#include "BiscottiTool.h"

#include "BiscottiPostPrinter.h"

#include <QTimer>
#include <QUuid>

#include <cstdio>

namespace
{
/// One that no other run has: the server tells clients apart by it.
QString clientId()
{
    return QStringLiteral("ombravision-biscotti_") + QUuid::createUuid().toString(QUuid::WithoutBraces);
}
} // namespace

BiscottiTool::BiscottiTool(BiscottiToolOptions const& options)
    : _options(options), _sockets([this](QString const& text) { onSocketError(text); }),
      _biscotti(&_clock, nullptr, &_memos, &_sockets, options.host, options.port, clientId(), &_engine)
{
    connect(&_biscotti, &Biscotti::stateChanged, this, &BiscottiTool::onStateChanged);
    connect(&_biscotti, &Biscotti::posted, this, [this] { finish(Done); });
    connect(&_biscotti, &Biscotti::errorPosting, this,
            [this](BiscottiPost const&, int code, QString const& text) { refused("post", code, text); });
    connect(&_biscotti, &Biscotti::subscribed, this, &BiscottiTool::onSubscribed);
    connect(
        &_biscotti, &Biscotti::errorSubscribing, this,
        [this](BiscottiSubscription const&, int code, QString const& text) { refused("subscription", code, text); });
}

BiscottiTool::~BiscottiTool()
{
    _biscotti.disconnect(this);
    _isFinished = true;
}

void BiscottiTool::start()
{
    isPosting() ? post() : subscribe();
}

void BiscottiTool::post()
{
    BiscottiPost post;
    post.setTopics(_options.topics);
    post.setAudience(_options.audience);
    post.setSenderId(_options.sender);
    post.setSenderName(_options.sender);
    post.setSendUtc(QDateTime::currentDateTimeUtc());
    post.setBody(_options.body);
    _biscotti.post(&post, {});
    QTimer::singleShot(_options.timeout * 1000, this, &BiscottiTool::onTimeout);
}

void BiscottiTool::subscribe()
{
    for (BiscottiTopic const& topic : _options.topics) {
        BiscottiSubscription subscription;
        subscription.setInterest(BiscottiTopicExpression(topic));
        subscription.setSenderId(_options.sender);
        _biscotti.subscribe(&subscription, this, {});
    }
}

BiscottiSubscriberId BiscottiTool::biscottiSubscriberId() const
{
    return BiscottiSubscriberId(QStringLiteral("tool"));
}

void BiscottiTool::handleBiscottiPost(BiscottiPost const& post)
{
    if (_isFinished)
        return;
    QByteArray const text =
        _options.bodiesOnly ? post.body() + '\n' : BiscottiPostPrinter::line(post, QDateTime::currentDateTimeUtc());
    size_t const size = static_cast<size_t>(text.size());
    if (std::fwrite(text.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0)
        return finish(Done); // Nobody reads any more.
    if (++_printed == _options.count)
        finish(Done);
}

void BiscottiTool::onSubscribed(BiscottiSubscription const& subscription)
{
    tell(QStringLiteral("subscribed to %1").arg(subscription.interest().toString()));
}

void BiscottiTool::onStateChanged(Biscotti::BiscottiState state)
{
    bool const isConnected = state == Biscotti::Connected;
    if (!isPosting() && !isConnected && _wasConnected)
        tell(QStringLiteral("the connection to %1 is lost; it is tried again within %2 s")
                 .arg(server())
                 .arg(CentralisedBiscotti::DefaultHeartbeatMs / 1000));
    _wasConnected = isConnected;
}

/// A lost connection is told by the state; this is about one that does not come about.
void BiscottiTool::onSocketError(QString const& text)
{
    if (_isFinished || _wasConnected)
        return;
    tell(QStringLiteral("%1: %2").arg(server(), text));
    if (isPosting())
        finish(NoServer);
    else
        tell(QStringLiteral("it is tried again every %1 s").arg(CentralisedBiscotti::DefaultHeartbeatMs / 1000));
}

void BiscottiTool::onTimeout()
{
    if (_isFinished)
        return;
    tell(_wasConnected
             ? QStringLiteral("%1 has not acknowledged the post within %2 s").arg(server()).arg(_options.timeout)
             : QStringLiteral("there was no connection to %1 within %2 s").arg(server()).arg(_options.timeout));
    finish(NoServer);
}

void BiscottiTool::refused(char const* what, int code, QString const& text)
{
    if (_isFinished)
        return;
    tell(QStringLiteral("%1 refuses the %2: %3 %4").arg(server(), QLatin1String(what)).arg(code).arg(text));
    finish(Refused);
}

void BiscottiTool::interrupt()
{
    if (_isFinished)
        return;
    if (isPosting())
        tell(QStringLiteral("interrupted; the post was not acknowledged"));
    finish(isPosting() ? NoServer : Done);
}

void BiscottiTool::finish(int status)
{
    if (_isFinished)
        return;
    _isFinished = true;
    emit finished(status);
}

void BiscottiTool::tell(QString const& text)
{
    std::fprintf(stderr, "ombravision-biscotti: %s\n", qUtf8Printable(text));
}
