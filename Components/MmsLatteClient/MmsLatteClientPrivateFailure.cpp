// What becomes of a failure.

#include "Logger.h"
#include "MmsLatteClient.h"
#include "MmsLatteClientPrivate.h"

#include <array>

namespace
{

/// What the viewer is told of a transport's error.
NetworkErrors::NetworkError networkErrorOf(MmsClient::MmsClientError error)
{
    constexpr std::array inWords = {
        NetworkErrors::NoError,
        NetworkErrors::EndOfStream,
        NetworkErrors::CouldNotConnect,
        NetworkErrors::StreamUnavailable,
        NetworkErrors::RemoteClosed,
        NetworkErrors::CouldNotResolve,
        NetworkErrors::StreamUnavailable,
        NetworkErrors::AuthenticationRequired,
        NetworkErrors::ProxyAuthenticationRequired,
    };
    constexpr auto other = static_cast<NetworkErrors::NetworkError>(8); // That has no words of its own.
    return error < inWords.size() ? inWords.at(error) : other;
}

} // namespace

void MmsLatteClientPrivate::mend(MmsClient::MmsClientError error, std::optional<bool> isNetworkAvailable)
{
    _buffer.useReconnectThreshold();
    if (_state == Checking || takeOver(error))
        return;
    _failure = networkErrorOf(error);
    if (isRefused())
        _failure = _refusal; // Over TCP there was nothing either, but that is not what the viewer has asked for.
    if (isNetworkAvailable || !_firstConnect)
        settle(_failure, isNetworkAvailable.value_or(true)); // Later on the network makes no difference.
    else
        enter(TestingNetwork);
}

/// Whether another attempt has been arranged for.
bool MmsLatteClientPrivate::takeOver(MmsClient::MmsClientError error)
{
    switch (error) {
    case MmsClient::EndOfStream:
        return checkNextContent();
    case MmsClient::CouldNotConnected:
    case MmsClient::StreamNotAvailable:
    case MmsClient::ReadTimeout:
        if (!checkNextContent())
            return false;
        LOG_INFO("Connecting to next item in playlist %s", qPrintable(_latteClient->uri().toString()));
        return true;
    case MmsClient::RemoteServerClosed:
        if (isRefused())
            return checkNextContent(); // A server of pages does not understand what is said over TCP.
        retryAfterRemoteClose();
        return true;
    default:
        return false;
    }
}

void MmsLatteClientPrivate::retryAfterRemoteClose()
{
    if (++_reconnectAttempts >= reconnectLimit && checkNextContent()) {
        _reconnectAttempts = 0;
        return;
    }
    LOG_INFO("Trying to reconnect to the server %s", qPrintable(_currentUrl));
    reconnectCurrentContent();
}

void MmsLatteClientPrivate::settle(NetworkErrors::NetworkError code, bool isNetworkAvailable)
{
    if (isNetworkAvailable && _firstConnect) {
        finish(code);
        return;
    }
    reconnectLater();
    emit failed(code);
}

void MmsLatteClientPrivate::finish(NetworkErrors::NetworkError code)
{
    enter(Finished);
    cancel();
    emit finished(code);
}
