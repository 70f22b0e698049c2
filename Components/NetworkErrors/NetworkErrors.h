#pragma once

#include <QMetaType>
#include <QObject>
#include <QString>

/// The numbered failures of the network, and what a viewer reads of them.
class NetworkErrors : public QObject
{
    Q_OBJECT

public:
    enum NetworkError {
        NoError = 0,
        GeneralError = 1,
        EndOfStream = 2,
        CouldNotResolve = 3,
        CouldNotConnect = 4,
        StreamUnavailable = 5,
        ResourceNotAvailable = 6,
        RemoteClosed = 7,
        AuthenticationRequired = 9,
        ProxyAuthenticationRequired = 10,
        UnexpectedSuccess = 11,
        UnexpectedRedirect = 12,
        UnexpectedClientError = 13,
        UnexpectedServerError = 14
    };
    Q_ENUM(NetworkError)

    /// The text for a viewer; any value outside the enumeration is "Unknown error".
    static QString stringForError(NetworkErrors::NetworkError error);

    /// What an answer of HTTP that is no success stands for, by its status; NoError for other numbers.
    static NetworkError ofHttpStatus(int status);

    // Reasons that have no number.
    static QString untrustedCertificate();
    static QString nothingToPlay();
};

Q_DECLARE_METATYPE(NetworkErrors::NetworkError)
