#pragma once

#include "SoapRequest.h"
#include "SoapUserChannel.h"

#include <QList>

#include <utility>

/// Searches the channels that viewers have added, and changes those of one viewer.
///
/// One call at a time, of whatever kind. The viewer is known by a node id.
class SoapUserChannels : public SoapRequest
{
    Q_OBJECT

public:
    /// The fields of a form, by their names.
    using Form = QList<std::pair<QString, QString>>;

    explicit SoapUserChannels(SoapService const& service, QObject* parent = nullptr);

    /// Searches; pages begin with 1.
    void getUserChannels(QString const& query, int page, QString const& nodeId);
    void getTopUserChannels(QString const& nodeId);
    void addUserChannel(QString const& nodeId, QString const& userChannelId);
    void removeUserChannel(QString const& nodeId, QString const& userChannelId);

    /// Takes a channel of the directory off the viewer's list, or puts it there again.
    void removePartnerChannel(QString const& nodeId, QString const& channelId);

    /// Adds a channel that the service does not know yet.
    void createUserChannel(Form const& form);

signals:
    void requestFailed(QString method, QString text);

    /// A page of the channels that were found, and how many there are in all.
    void getUserChannelsCompleted(int total, QList<SoapUserChannel> channels);
    void getTopUserChannelsCompleted(int total, QList<SoapUserChannel> channels);
    void addUserChannelCompleted(SoapUserChannel channel);
    void removeUserChannelCompleted(bool done);
    void removePartnerChannelCompleted(bool done);
    void createUserChannelCompleted(SoapUserChannel channel);

private slots:
    void onRequestCompleted(bool ok, QString const& text);

private:
    void submit(char const* method, Form const& arguments);
    QList<SoapUserChannel> channels() const;
};
