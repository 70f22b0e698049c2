#pragma once

#include "SoapLoginResponse.h"
#include "SoapRequest.h"

/// Signs in at the service.
class SoapLogin : public SoapRequest
{
    Q_OBJECT

public:
    /// Who wants to sign in, from where.
    struct Credentials {
        QString email;
        QString password;
        QString nodeId;
        QString version;          ///< of this program
        bool isAutomatic = false; ///< Nobody has just typed them.
    };

    explicit SoapLogin(SoapService const& service, QObject* parent = nullptr);

    /// Asks the service, unless it is being asked.
    void login(Credentials const& credentials);

    /// The fields of a sign-in as one line, "EMAIL PASSWORD NODE VERSION AUTOMATIC-Linux ARCHITECTURE": the first
    /// four percent-encoded, so that they may hold blanks, the fifth 1 or 0.
    static QString composeLogin(Credentials const& credentials);

signals:
    /// The service has answered, or in the response's message stands why it has not.
    void loginCompleted(bool ok, SoapLoginResponse response);

    /// The service has a newer version of this program; comes before loginCompleted().
    void updateAvailable(SoapLoginResponse response);

private slots:
    void onRequestCompleted(bool ok, QString const& text);
};
