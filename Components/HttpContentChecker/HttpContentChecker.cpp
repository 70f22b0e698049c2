#include "HttpContentChecker.h"

#include "ContentClassifier.h"
#include "HttpClientFactory.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsPragmas.h"
#include "Timer.h"
#include "TimerFactory.h"

#include <algorithm>
#include <limits>
#include <utility>

Logger* HttpContentChecker::log = LoggerManager::logger();

namespace
{

bool isSecure(QUrl const& url)
{
    return url.scheme() == "https";
}

/// Whether HTTP can be spoken with the server of an address.
bool canBeAsked(QUrl const& url)
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == "http" || isSecure(url) || url.scheme().startsWith("mms"));
}

QString pathOf(QUrl const& url)
{
    QString path = url.path(QUrl::FullyEncoded);
    if (url.hasQuery())
        path += "?" + url.query(QUrl::FullyEncoded);
    if (path.startsWith('?'))
        path.prepend('/');
    return path.isEmpty() ? QString("/") : path;
}

QString hostOf(QUrl const& url)
{
    QString const host = url.host(QUrl::FullyEncoded);
    return host.contains(':') ? QString("[" + host + "]") : host;
}

} // namespace

HttpContentChecker::HttpContentChecker(HttpClientFactory* httpClientFactory, TimerFactory* timerFactory,
                                       QObject* parent)
    : QObject(parent), _httpClientFactory(httpClientFactory), _timerFactory(timerFactory), _guid(QUuid::createUuid())
{
}

HttpContentChecker::~HttpContentChecker()
{
    cancel();
}

int HttpContentChecker::check(QString const& url, QString const& referrer, QString const& text, int timeout)
{
    LOG_INFO("check(%s,%s,%s,%d)", qPrintable(url), qPrintable(referrer), qPrintable(text), timeout);
    CheckResponse& check = _checks.emplace_back();
    check.handle = ++_lastHandle;
    check.url = check.key = url;
    check.referrer = referrer;
    check.text = text;
    check.timeout = std::max(timeout, 1);
    start(check);
    return check.handle;
}

void HttpContentChecker::cancel()
{
    for (CheckResponse& check : _checks)
        release(check);
    _checks.clear();
}

void HttpContentChecker::start(CheckResponse& check)
{
    check.statusClass = 0;
    check.isWhole = false;
    check.header = HttpResponseHeader();
    check.body.clear();
    QUrl const url(check.url.trimmed());
    if (canBeAsked(url))
        send(check, url);
    else
        failSoon(check);
}

void HttpContentChecker::send(CheckResponse& check, QUrl const& url)
{
    check.timer = _timerFactory->createTimer();
    check.timer->setSingleShot(true);
    connect(check.timer, &Timer::timeout, this, &HttpContentChecker::timeout);
    check.client = _httpClientFactory->createHttpClient(nullptr);
    connect(check.client, &HttpClient::responseHeaderReceived, this, &HttpContentChecker::responseHeaderReceived);
    connect(check.client, &HttpClient::readyRead, this, &HttpContentChecker::readyRead);
    connect(check.client, &HttpClient::done, this, &HttpContentChecker::done);

    HttpRequestHeader header("GET", pathOf(url), 1, 1);
    header.addValue("Host", hostOf(url));
    header.addValue("User-Agent", MmsPragmas::userAgent);
    header.addValue("Accept", "*/*");
    header.addValue("Supported", MmsPragmas::supported);
    header.addValue("Pragma", "no-cache");
    header.addValue("Pragma", MmsPragmas::clientInfo + (check.text.isEmpty() ? _guid.toString() : check.text));
    if (!check.referrer.isEmpty())
        header.addValue("Referrer", check.referrer);
    if (isSecure(url))
        check.client->setHost(url.host(), HttpClient::ConnectionModeHttps, url.port(0));
    else
        check.client->setHost(url.host(), url.port(80));
    check.client->request(header, {});
    check.timer->start(check.timeout);
}

/// Gives back what a try holds. The connection ends at once.
void HttpContentChecker::release(CheckResponse& check)
{
    if (HttpClient* const client = std::exchange(check.client, nullptr)) {
        client->disconnect(this);
        client->abort();
        _httpClientFactory->disposeHttpClient(client);
    }
    if (Timer* const timer = std::exchange(check.timer, nullptr)) {
        timer->disconnect(this);
        timer->stop();
        _timerFactory->disposeTimer(timer);
    }
}

HttpContentChecker::Checks::iterator HttpContentChecker::find(HttpClient const* client)
{
    return std::find_if(_checks.begin(), _checks.end(),
                        [&](CheckResponse const& check) { return check.client == client; });
}

void HttpContentChecker::failSoon(CheckResponse& check)
{
    LOG_WARNING("\"%s\" cannot be asked over HTTP.", qPrintable(check.url));
    auto const fail = [this, handle = check.handle] {
        auto const isIt = [&](CheckResponse const& other) { return other.handle == handle; };
        if (auto const it = std::find_if(_checks.begin(), _checks.end(), isIt); it != _checks.end())
            finish(it);
    };
    QMetaObject::invokeMethod(this, fail, Qt::QueuedConnection);
}

void HttpContentChecker::responseHeaderReceived(HttpClient* client, HttpResponseHeader const& header)
{
    auto const check = find(client);
    if (check == _checks.end())
        return;
    LOG_INFO("Response %d from: %s", header.statusCode(), qPrintable(check->url));
    check->header = header;
    check->statusClass = header.statusCode() / 100;
    if (check->statusClass != 2) {
        conclude(check);
        return;
    }
    MmsPragmas const pragmas = MmsPragmas::of(header);
    check->isBroadcast = pragmas.isBroadcast;
    check->isLive = pragmas.isLive;
    check->streamTimeout = pragmas.timeout;
    check->clientId = pragmas.clientId;
    if (ContentClassifier::typeOf(header) != Unknown || !ContentClassifier::needsBody(header))
        conclude(check);
}

void HttpContentChecker::readyRead(HttpClient* client, HttpResponseHeader const&)
{
    auto const check = find(client);
    if (check == _checks.end())
        return;
    check->body += client->readAll();
    if (check->body.size() >= maximumBodyBytes || ContentClassifier::isAsfFile(check->body)) {
        check->body.truncate(maximumBodyBytes);
        conclude(check);
    }
}

void HttpContentChecker::done(HttpClient* client, bool error)
{
    auto const check = find(client);
    if (check == _checks.end())
        return;
    check->body += client->readAll();
    check->body.truncate(maximumBodyBytes);
    if (error)
        LOG_INFO("The check of %s ended with error %d.", qPrintable(check->url), client->error());
    conclude(check, !error);
}

/// Judges what has come of the answer, the rest of which is not waited for.
void HttpContentChecker::conclude(Checks::iterator check, bool isWhole)
{
    check->isWhole = isWhole;
    LOG_INFO("done() %s status code %d content-type %s", qPrintable(check->url), check->header.statusCode(),
             qPrintable(check->header.value("Content-Type")));
    release(*check);
    switch (check->statusClass) {
    case 2:
        check->contentType = ContentClassifier::typeOf(check->header);
        if (check->contentType != MmsStream && ContentClassifier::needsBody(check->header))
            if (ContentType const type = ContentClassifier::typeOf(check->body); type != Unknown)
                check->contentType = type;
        retryOrFinish(check, maximumAnsweredTries);
        break;
    case 3:
        if (check->header.hasKey("Location"))
            redirect(check);
        else
            retryOrFinish(check, maximumTries);
        break;
    case 4:
    case 5:
        finish(check);
        break;
    default:
        retryOrFinish(check, maximumTries);
    }
}

void HttpContentChecker::redirect(Checks::iterator check)
{
    if (++check->redirections > maximumRedirections) {
        LOG_WARNING("%s is redirected without end.", qPrintable(check->key));
        finish(check);
        return;
    }
    QUrl const from(check->url.trimmed());
    QUrl to = from.resolved(QUrl(check->header.value("Location").trimmed()));
    if (!to.hasQuery() && from.hasQuery())
        to.setQuery(from.query(QUrl::FullyEncoded));
    check->url = to.toString(QUrl::FullyEncoded);
    start(*check);
}

void HttpContentChecker::timeout(Timer* timer)
{
    auto const check =
        std::find_if(_checks.begin(), _checks.end(), [&](CheckResponse const& c) { return c.timer == timer; });
    if (check == _checks.end())
        return;
    LOG_INFO("The check of %s got no answer in %d ms.", qPrintable(check->url), check->timeout);
    release(*check);
    CheckResponse const response = *check;
    retryOrFinish(check, check->statusClass == 2 ? maximumAnsweredTries : maximumSilentTries);
    if (response.tryCount == 1 && response.statusClass == 0)
        emit silent(response);
}

void HttpContentChecker::retryOrFinish(Checks::iterator check, int maximum)
{
    if (check->contentType != Unknown || check->tryCount >= maximum) {
        finish(check);
        return;
    }
    ++check->tryCount;
    check->timeout = static_cast<int>(std::min<qint64>(2LL * check->timeout, std::numeric_limits<int>::max()));
    start(*check);
}

void HttpContentChecker::finish(Checks::iterator check)
{
    CheckResponse const response = std::move(*check);
    _checks.erase(check);
    emit finished(response, response.contentType == Unknown);
}
