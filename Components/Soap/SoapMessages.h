#pragma once

#include "SoapRequest.h"

#include <QStringList>

/// Fetches what the service has to tell the viewer.
class SoapMessages : public SoapRequest
{
    Q_OBJECT

public:
    explicit SoapMessages(SoapService const& service, QObject* parent = nullptr);

    /// Asks for messages, unless they are being asked for.
    void checkForMessages(QString const& nodeId);

signals:
    /// Good for so many seconds.
    void messagesReceived(int ttl, QStringList messages);
    void checkFailed(QString text);

private slots:
    void onRequestCompleted(bool ok, QString const& text);
};
