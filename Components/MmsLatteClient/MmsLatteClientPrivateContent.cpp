// Which address is tried next, and how.

#include "AsxPlaylist.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "MmsLatteClient.h"
#include "MmsLatteClientPrivate.h"
#include "MmsReconnectMemos.h"
#include "RefPlaylist.h"
#include "SortedMemoQueue.h"

#include <QUrl>

#include <algorithm>

namespace
{
/// Of the refusals, those that are for now: Request Timeout, Locked, Too Early, Too Many Requests.
constexpr int passing[] = {408, 423, 425, 429};
} // namespace

void MmsLatteClientPrivate::checkContent(QString const& url, QString const& referrer, QString const& text)
{
    _playlist.enter(url, referrer);
    _currentKey = url;
    if (_playlist.isStream(url)) {
        connectTo(_playlist.useHttp(url), url, referrer);
        return;
    }
    _contentChecker->cancel();
    enter(Checking);
    _contentChecker->check(url, referrer, text.isEmpty() ? _name : text, firstCheckTimeout);
}

void MmsLatteClientPrivate::connectTo(bool http, QString const& url, QString const& referrer)
{
    _contentChecker->cancel();
    enter(Connecting);
    openTransport(http, url, referrer);
}

void MmsLatteClientPrivate::openTransport(bool http, QString const& url, QString const& referrer)
{
    constructMmsClient(http);
    _currentUrl = url;
    _referrer = referrer;
    connectTransport(url, referrer);
}

void MmsLatteClientPrivate::connectTransport(QString const& url, QString const& referrer)
{
    _transportUrl = url;
    _drySeconds = drySeconds; // The viewer is told of the connection, and where it takes over of its play then.
    _client->connectToServer(QUrl(url), referrer, _connectTimeout);
}

void MmsLatteClientPrivate::attempt(MmsPlaylist::Address const& address)
{
    if (address.isToBeAsked) {
        checkContent(address.url, address.referrer, "");
        return;
    }
    _currentKey = address.url;
    connectTo(address.useHttp, address.url, address.referrer);
}

/// Whatever an address is, it may still be served over TCP.
void MmsLatteClientPrivate::fallBackToTcp(HttpContentChecker::CheckResponse const& response)
{
    connectTo(false, response.url, response.referrer);
}

bool MmsLatteClientPrivate::isTryingTcp(QString const& url) const
{
    return _client && !_buffer.isPlaying() && _client->protocol() == MmsClient::MmsTcp && _currentUrl == url &&
           _client->state() != MmsClient::Unconnected && _client->state() < MmsClient::Closing;
}

/// A firewall may swallow what is sent to the port of HTTP: from now on both are tried, and the first to bring the
/// stream is taken.
void MmsLatteClientPrivate::onContentCheckerSilent(HttpContentChecker::CheckResponse const& response)
{
    if (_state == Checking && !_buffer.isPlaying() && response.url.startsWith("mms", Qt::CaseInsensitive))
        openTransport(false, response.url, response.referrer);
}

void MmsLatteClientPrivate::onContentCheckerFinished(HttpContentChecker::CheckResponse const& response, bool failed)
{
    if (_state != Checking)
        return;
    enter(Connecting);
    _refusal = NetworkErrors::NoError;
    if (failed) {
        noteRefusal(response);
        if (isTryingTcp(response.url))
            return;
        if (auto const address = _playlist.nextOf(response.key))
            attempt(*address);
        else
            fallBackToTcp(response);
        return;
    }
    switch (response.contentType) {
    case HttpContentChecker::MmsStream:
        _playlist.enter(response.key, response.referrer);
        _playlist.setStream(response.key, true);
        _playlist.setStream(response.url, true);
        connectTo(true, response.url, response.referrer);
        break;
    case HttpContentChecker::PlaylistDocument:
        openPlaylist(response);
        break;
    case HttpContentChecker::PlainFile:
        LOG_WARNING("Doesn't support Audio/Video file content at the moment");
        giveUp(response.key, NetworkErrors::UnexpectedSuccess);
        break;
    default:
        if (!checkNextContent())
            fallBackToTcp(response);
    }
}

/// What the server of an address of HTTP has answered, if it may be no server of streams at all.
void MmsLatteClientPrivate::noteRefusal(HttpContentChecker::CheckResponse const& response)
{
    if (!response.url.startsWith("http", Qt::CaseInsensitive) || response.header.statusCode() == 0)
        return;
    int const status = response.header.statusCode();
    LOG_ERROR("%s answers %d with %s, which cannot be played", qPrintable(response.url), status,
              qPrintable(response.header.value("Content-Type")));
    if (response.statusClass == 2 && response.isWhole)
        _refusal = NetworkErrors::ResourceNotAvailable;
    else if (response.statusClass == 4 && std::ranges::find(passing, status) == std::end(passing))
        _refusal = NetworkErrors::ofHttpStatus(status); // All else may be better later.
}

void MmsLatteClientPrivate::openPlaylist(HttpContentChecker::CheckResponse const& response)
{
    QString const text = Playlist::decode(response.body);
    std::unique_ptr<Playlist> playlist;
    if (text.contains("asx", Qt::CaseInsensitive))
        playlist = std::make_unique<AsxPlaylist>(text);
    else if (text.contains("reference", Qt::CaseInsensitive))
        playlist = std::make_unique<RefPlaylist>(text);
    if (playlist)
        playlist->parse();
    if (!playlist)
        LOG_ERROR("Unknown playlist %s", qPrintable(response.url));
    else if (!_playlist.replace(response.key, playlist->items()))
        LOG_ERROR("Found known playlist but could not parse it");
    else {
        attempt(*_playlist.next());
        return;
    }
    giveUp(response.key, NetworkErrors::StreamUnavailable);
}

/// An address leads nowhere: the others have their turn. Without any this is the end.
void MmsLatteClientPrivate::giveUp(QString const& url, NetworkErrors::NetworkError code)
{
    _playlist.remove(url);
    if (_playlist.isEmpty())
        finish(code);
    else
        goOnToNext();
}

/// The next attempt, in place of any other that was to come.
void MmsLatteClientPrivate::postMemo(int ms, Memo* memo)
{
    enter(Waiting);
    _queue->clear(this);
    _queue->handleSoon(static_cast<unsigned int>(ms), memo);
}

void MmsLatteClientPrivate::goOnToNext()
{
    postMemo(_policy.nextDelay(_playlist.addressCount()), new MmsReconnectNextContentMemo(this));
}

void MmsLatteClientPrivate::reconnectCurrentContent()
{
    postMemo(_policy.nextDelay(), new MmsReconnectMemo(this));
}

void MmsLatteClientPrivate::reconnectLater()
{
    if (_connectTimeout < maxConnectTimeout)
        _connectTimeout *= 2;
    _currentUrl = _currentKey; // What redirected here may now lead elsewhere.
    reconnectCurrentContent();
}

void MmsLatteClientPrivate::doReconnectCurrentContent()
{
    MmsPlaylist::Address address{_currentUrl, _referrer};
    if (address.url.isEmpty() && !_playlist.isEmpty())
        address = *_playlist.current();
    // A token in the address may have gone stale: whoever gave it gives a new one. The address itself keeps its case.
    if (address.url.isEmpty() || address.url.toLower().contains("auth")) {
        _playlist.clear();
        checkContent(_latteClient->uri().toString(), "", "");
    } else if (_playlist.contains(address.url)) {
        checkContent(address.url, address.referrer, "");
    } else if (_client) {
        enter(Connecting);
        connectTransport(address.url, address.referrer);
    } else {
        connectTo(false, address.url, address.referrer);
    }
}

bool MmsLatteClientPrivate::checkNextContent()
{
    if (_currentUrl.isEmpty() || !_playlist.hasAlternative())
        return false;
    goOnToNext();
    return true;
}

void MmsLatteClientPrivate::doCheckNextContent()
{
    std::optional<MmsPlaylist::Address> const address = _playlist.next();
    if (!address)
        return;
    _currentUrl = address->url;
    _referrer = address->referrer;
    attempt(*address);
}

void MmsLatteClientPrivate::updateContent(QString const& url)
{
    bool const http = _client->protocol() == MmsClient::MmsHttp;
    _playlist.setStream(url, http);
    if (_playlist.contains(_currentKey))
        _playlist.setStream(_currentKey, http);
}
