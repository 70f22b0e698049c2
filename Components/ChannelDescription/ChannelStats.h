#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

class Logger;

/// How many watch each channel, as it travels in a message: as XML,
///
///     <channels><ms>N</ms><channel><channelId>ID</channelId><viewers>N</viewers></channel>...</channels>
///
/// Names are read in whatever case, what is unknown is passed over, and what is no number is 0.
class ChannelStats : public QObject
{
    Q_OBJECT

public:
    explicit ChannelStats(QObject* parent = nullptr);

    /// Reads a document; of one that is broken, what comes before the fault.
    explicit ChannelStats(QString const& xml, QObject* parent = nullptr);

    /// The sample's time stamp or period in milliseconds, as the sender gives it.
    int ms() const { return _ms; }
    void setMs(int ms) { _ms = ms; }

    void setChannelDetails(QString const& channelId, int viewers) { _viewers.insert(channelId, viewers); }

    /// 0 for a channel that is not known.
    int viewers(QString const& channelId) const { return _viewers.value(channelId); }

    /// The ids of the channels, in no order.
    QStringList channels() const { return _viewers.keys(); }

    QString toXml() const;

private:
    class Reading;

    static Logger* log;

    int _ms = 0;
    QHash<QString, int> _viewers; ///< By channel id.
};
