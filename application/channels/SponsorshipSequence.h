#pragma once

#include "SponsorshipMedia.h"
#include "SponsorshipResponse.h"

#include <QImage>
#include <QObject>
#include <QString>
#include <QStringList>

class AppData;
class Channel;
class ChannelManager;
class ChannelStream;
class Logger;
class SponsorshipSource;
class Timer;
class TimerFactory;

/// What happens around a pre-roll: it is asked for, plays as a channel of its own while the wanted channel buffers
/// unseen behind it, and makes room for that. Main thread only.
class SponsorshipSequence : public QObject
{
    Q_OBJECT

public:
    static constexpr int afterPlayback = 100; ///< ms, from the end of the pre-roll to the wanted channel.
    static constexpr int startTime = 10000;   ///< ms, for the pre-roll to begin; the wanted channel comes then.

    /// All are borrowed.
    SponsorshipSequence(AppData& appData, ChannelManager& channels, TimerFactory* timers, SponsorshipSource* source,
                        QObject* parent = nullptr);
    ~SponsorshipSequence() override;

    /// Whether the active channel is a pre-roll.
    bool isPlaying() const;
    /// Null when there is none.
    Channel* channel() const { return _channel; }
    /// What comes after the pre-roll; empty when there is none.
    QString postSponsorshipChannelId() const { return _nextId; }

    /// The others that are to be opened beside that.
    QStringList beside() const { return _beside; }

    /// Asks for a pre-roll before a channel, and those beside it; nothing else is open. `previous` played for so many
    /// seconds, and may be null.
    void request(Channel* next, QStringList const& beside, Channel const* previous, int previousSeconds);
    /// While something is to come after one: another channel is to be opened beside that.
    void addBeside(QString const& id);
    /// While one plays: another channel is to come after it.
    void replaceNext(Channel* next);
    /// There will be no pre-roll, and nothing after it.
    void cancel();
    /// The viewer has clicked on the pre-roll.
    void click();

signals:
    void postSponsorshipChannelChanged(QString id);
    void sponsorshipLoadCompanionAds(SponsorshipResponse response);
    void sponsorshipDisplayCompanionAds();
    void sponsorshipCloseCompanionAds();

public slots:
    void onSponsorshipRequestCompleted(bool ok, SponsorshipResponse const& response);
    void openPostSponsorshipChannel();
    void onSponsorshipPlaybackStarted(Channel* channel, ChannelStream* stream);
    void onSponsorshipPlaybackTimeUpdated(Channel* channel, ChannelStream* stream, double seconds);
    void onSponsorshipPlaybackCompleted(Channel* channel, ChannelStream* stream);
    void onSponsorshipPlaybackLooped(Channel* channel, ChannelStream* stream);
    void onSponsorshipPlaybackError(Channel* channel, ChannelStream* stream, QString const& text);
    void onSponsorshipStaticImageCompleted();
    void onLogoUpdated(QImage const& logo);

private:
    enum class Wait { None, Start, StillImage, WantedChannel }; ///< What the timer runs for.

    void wait(Wait what, qint64 ms);
    void onTimeout();
    void giveUp();
    void onMediaPrepared(SponsorshipResponse const& response, QString const& address, QImage const& logo);
    Channel* createSponsorshipChannel(QString const& address, QImage const& logo);
    void onChannelClosed(Channel* channel);
    void connectPlayback();
    void setNextId(QString const& id);
    void bufferNext();
    void finish();

    static Logger* log;

    AppData& _appData;
    ChannelManager& _channels;
    TimerFactory* const _timers;
    SponsorshipSource* const _source;
    Timer* const _timer; ///< Of the factory.
    Wait _wait = Wait::None;
    Channel* _channel = nullptr;
    SponsorshipResponse _response;
    SponsorshipMedia _media;
    QString _nextId;
    QStringList _beside;
    bool _isRequested = false; ///< Nothing plays yet: neither is it answered, nor its media there.
    bool _isStarted = false;   ///< It plays, or is shown.
    qint64 _msStarted = 0;     ///< On the application's clock.
};
