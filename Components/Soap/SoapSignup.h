#pragma once

#include "SoapRequest.h"

/// Makes an account at the service.
class SoapSignup : public SoapRequest
{
    Q_OBJECT

public:
    explicit SoapSignup(SoapService const& service, QObject* parent = nullptr);

    /// Asks for an account, unless one is being asked for. The user name is an e-mail address; letters to it that are
    /// not about the account are sent only if they are allowed.
    void signup(QString const& userName, QString const& password, bool emailAllowed);

    /// What the service says is wrong, a line for each point; empty if it made the account. Survives any text.
    static QString errorsIn(QString const& reply);

signals:
    /// With what went wrong, a line for each point, or nothing.
    void signupCompleted(bool ok, QString text);

private slots:
    void onRequestCompleted(bool ok, QString const& text);
};
