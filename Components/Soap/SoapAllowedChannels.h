#pragma once

#include "SoapRequest.h"

#include <QStringList>

/// Asks the service which channels a viewer may watch from where they are.
class SoapAllowedChannels : public SoapRequest
{
    Q_OBJECT

public:
    explicit SoapAllowedChannels(SoapService const& service, QObject* parent = nullptr);

    /// Asks, unless it is being asked. Virtual for those that answer without a network.
    virtual void getAllowedChannels(QString const& nodeId);

signals:
    /// Where the service takes the viewer to be and how sure it is of that, the channel to begin with, and the ids of
    /// all that may be watched.
    void allowedChannelsReceived(QString confidenceFactor, QString countryId, QString ipAddress,
                                 QString defaultChannel, QStringList ids);
    void allowedChannelsError(QString text);

private slots:
    void onRequestCompleted(bool ok, QString const& text);
};
