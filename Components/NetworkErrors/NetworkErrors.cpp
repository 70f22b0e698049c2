#include "NetworkErrors.h"

namespace
{
[[maybe_unused]] int const metaTypeId = qRegisterMetaType<NetworkErrors::NetworkError>("NetworkErrors::NetworkError");
} // namespace

QString NetworkErrors::stringForError(NetworkErrors::NetworkError error)
{
    switch (error) {
    case NoError:
        return tr("No error");
    case GeneralError:
        return tr("There was a general error");
    case EndOfStream:
        return tr("End of stream encountered");
    case CouldNotResolve:
        return tr("Could not resolve resource");
    case CouldNotConnect:
        return tr("Could not connect to server");
    case StreamUnavailable:
        return tr("Stream unavailable");
    case ResourceNotAvailable:
        return tr("Resource not available");
    case RemoteClosed:
        return tr("A remote server closed the connection");
    case AuthenticationRequired:
        return tr("Authentication required");
    case ProxyAuthenticationRequired:
        return tr("Proxy authentication required");
    case UnexpectedSuccess:
        return tr("The operation unexpectedly succeeded");
    case UnexpectedRedirect:
        return tr("The operation was unexpectedly redirected");
    case UnexpectedClientError:
        return tr("There was an unexpected client error");
    case UnexpectedServerError:
        return tr("There was an unexpected server error");
    }
    return tr("Unknown error");
}

NetworkErrors::NetworkError NetworkErrors::ofHttpStatus(int status)
{
    switch (status) {
    case 401:
        return AuthenticationRequired;
    case 403:
    case 404:
    case 410:
        return ResourceNotAvailable;
    case 407:
        return ProxyAuthenticationRequired;
    default:
        return status / 100 == 4 ? UnexpectedClientError : status / 100 == 5 ? UnexpectedServerError : NoError;
    }
}

QString NetworkErrors::untrustedCertificate()
{
    return tr("The certificate of the server is not trusted");
}

QString NetworkErrors::nothingToPlay()
{
    return tr("The server sends nothing that can be played");
}
