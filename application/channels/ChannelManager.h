#pragma once

#include "ChannelActions.h"
#include "ChannelClickAction.h"
#include "ChannelFeed.h"
#include "ChannelGrid.h"
#include "ChannelSwitch.h"
#include "ChannelUpdate.h"
#include "KnownChannels.h"
#include "OpenChannels.h"
#include "RetiredChannels.h"
#include "SponsorshipSequence.h"

#include <QCursor>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <vector>

class AppData;
class Channel;
class ChannelStream;
class Logger;
class QKeyEvent;
class SponsorshipSource;

/// Knows every channel, and is the only way to open or close one. The face of several: KnownChannels owns them,
/// ChannelFeed tells where they come from and ChannelUpdate follows that, OpenChannels has those that are open,
/// ChannelSwitch what comes after a fade, ChannelGrid how they are shown, ChannelActions their menu entries,
/// SponsorshipSequence a pre-roll.
///
/// Main thread only.
class ChannelManager : public QObject
{
    Q_OBJECT

public:
    static constexpr int fadeTime = OpenChannels::fadeTime; ///< ms
    static constexpr int pauseBeforeLoop = 500;             ///< ms, where a stream begins anew by being opened again.

    /// What the manager works with, all borrowed; where something is left out it takes the application's own.
    struct Parts {
        TimerFactory* timers = nullptr;
        SponsorshipSource* sponsorship = nullptr; ///< Without one there are no pre-rolls.
        ChannelFeed::ProviderFactory createProvider;
    };

    explicit ChannelManager(AppData& appData, QObject* parent = nullptr);
    ChannelManager(AppData& appData, Parts const& parts, QObject* parent = nullptr);
    ~ChannelManager() override;

    // The directory.
    void startChecking() { _feed.startChecking(); }
    void stopChecking()
    {
        _feed.stopChecking();
        _update.cancel();
    }
    void refresh() { _feed.refresh(); }
    /// Closes and forgets all channels; they are deleted little by little.
    void unloadChannels();
    /// Whether there has been a directory since the last unloadChannels().
    bool channelsLoaded() const { return _channelsLoaded; }
    /// Whether a new directory is being taken over; channelsUpdated() tells the end.
    bool isUpdating() const { return _update.isRunning(); }
    QList<Channel*> channels(int typeMask = KnownChannels::anyType) const { return _known.channels(typeMask); }
    int channelCount() const { return _known.count(); }
    Channel* getChannelByIndex(int index) const { return _known.at(index); }
    Channel* getChannelByRootId(QString const& rootId) const { return _known.find(rootId); }
    QList<Channel*> getChannelsForAlertTopic(QString const& topic) const
    {
        return _known.channelsForAlertTopic(topic);
    }
    Channel* firstChannel() const { return _known.at(0); }
    Channel* lastChannel() const { return _known.at(_known.count() - 1); }
    /// In a ring.
    Channel* nextChannel(Channel const* channel) const { return _known.neighbour(channel, 1); }
    Channel* previousChannel(Channel const* channel) const { return _known.neighbour(channel, -1); }
    /// The service's choice, otherwise the first; null when there is none.
    Channel* defaultChannel() const;

    /// Adds a channel that is not known yet.
    Channel* addChannel(ChannelDescription const& description);
    /// Closes and forgets one.
    void removeChannel(Channel* channel);
    /// Adds a channel of the viewer's own, or gives the one that has this root id already.
    Channel* addUserChannel(ChannelDescription const& description);
    /// Closes and forgets a channel.
    void removeUserChannel(Channel* channel);

    // Opening and closing.
    /// Opens a channel: alone, after the others have faded out, with nonMultiview or when nothing is open; otherwise
    /// beside the others, at `index` or last with -1. One that is open becomes the active one.
    /// A pre-roll comes first with useSponsorship, if there is one, where the channel opens alone.
    void openChannel(Channel* channel, bool useSponsorship, bool nonMultiview, int index = -1);
    /// The same for a root id; one that is unknown opens nothing.
    void openChannel(QString const& rootId, bool useSponsorship, bool nonMultiview, int index = -1);
    /// The same for a channel that need not be known yet.
    void previewChannel(ChannelDescription const& description, bool useSponsorship, bool nonMultiview,
                        int index = -1);
    /// Opens a channel unseen and silent, so that it can be shown at once later.
    void prepareChannel(Channel* channel) { _open.prepareUnseen(channel); }
    void closeChannel(Channel* channel);
    void closeChannel(QString const& rootId);
    /// And, with the flag, gives up a pre-roll and what was to come after it.
    void closeAllChannels(bool cancelSponsorship = true);
    void fadeAndCloseAllChannels(int ms);
    /// Closes what is open, and what was about to be, until openLastChannels().
    void closeForLater();
    /// Opens again what was open last; the default channel when nothing of that is known.
    void openLastChannels(bool useSponsorship = false);
    /// Closes a channel and opens it in the same place.
    void reconnectChannel(Channel* channel);
    /// The same with the streams of another description.
    void reconnectChannel(Channel* channel, ChannelDescription const& description);

    /// Opens an address, for which OwnChannels::isAddress() holds, as a channel of its own, beside or in place of the
    /// others.
    void openUserStream(QString const& url, QString const& title, bool nonMultiview);
    /// The same for a file.
    void openFile(QString const& path, bool nonMultiview);
    /// The same for a channel that the viewer has put together; one that is open already begins anew.
    void openOwnChannel(ChannelDescription const& description, bool nonMultiview);

    void setActiveChannel(Channel* channel) { _open.setActive(channel); }
    Channel* activeChannel() const { return _open.active(); }
    QString activeChannelId() const;
    QString activeChannelRootId() const;
    QList<Channel*> openChannels() const { return _open.channels(); }
    bool isChannelOpen(Channel const* channel) const { return _open.contains(channel); }
    bool isChannelOpenByRootId(QString const& rootId) const;
    /// Whether it waits for a fade or a pre-roll.
    bool isAboutToOpen(QString const& rootId) const;
    /// Whether something is open, or is about to be.
    bool isBusy() const { return !_open.isEmpty() || _switch.isPending() || !postSponsorshipChannelId().isEmpty(); }

    QString lastChannelId() const { return _open.lastChannelId(); }
    void setLastChannelId(QString const& id) { _open.setLastChannelId(id); }
    QStringList lastChannelIds() const { return _open.lastChannelIds(); }
    void setLastChannelIds(QStringList const& ids) { _open.setLastChannelIds(ids); }

    // How they play.
    void setVolume(double volume) { _open.setVolume(volume); }
    double volume() const { return _open.volume(); }
    void setMuted(bool muted) { _open.setMuted(muted); }
    bool muted() const { return _open.muted(); }
    /// Whether somebody looks at the surface: pictures that nobody sees cost little more than their decoding.
    void setWatched(bool watched) { _open.setWatched(watched); }
    /// The speed of whatever plays and will play, 1.0 at first. What cannot seek, such as a live stream, plays at 1.0
    /// whatever is chosen, since it would run dry or fall behind.
    void setSpeed(double speed);
    double speed() const { return _open.speed(); }
    /// Whether some of what plays, or is about to, can go at the chosen speed; true when nothing is open.
    bool canChangeSpeed() const { return _open.canChangeSpeed(); }
    void seekForwards(double seconds);
    void seekBackwards(double seconds);
    /// Has the active channel go to a time, in seconds, where it can seek.
    void setMovieTime(double seconds);
    /// Holds what can seek of all that is open, or lets it go on.
    void setPaused(bool paused);
    bool isPaused() const;

    /// Has two of the open channels change places.
    void swapChannels(QString const& oneRootId, QString const& otherRootId);
    /// Closes what prepareChannel() has opened, if it has not been shown since.
    void dropPreparedChannel(QString const& rootId) { _open.dropUnseenOne(getChannelByRootId(rootId)); }

    // Clicks.
    /// What a click on a channel does, wherever its name or picture is.
    ChannelClickAction channelClickAction(QString const& rootId, bool isModifierHeld) const;
    void performChannelClickAction(QString const& rootId, ChannelClickAction action);
    /// As a click on the one after what the viewer has chosen last, or before it with a step of -1.
    void openNeighbour(int step);
    QCursor cursorForChannelClickAction(ChannelClickAction action) const;
    /// Has cursorChanged() tell the pointer over a channel, for what a click on it does; over none with an empty id.
    void setChannelCursor(QString const& rootId, bool isModifierHeld);
    ChannelActions& channelActions() { return _actions; }

    // The surface: its size and points are in its pixels, y downward; drawing with the GL context current.
    void renderVideoOrtho(QRect const& area, GLMovieRenderer::DrawMode mode)
    {
        _grid.render(openChannels(), area, mode);
    }
    /// The same in the depth of the screen; pictures keep their aspect ratio unless they are to be stretched.
    void renderVideoPerspective(QRect const& area, GLMovieRenderer::DrawMode mode)
    {
        _grid.renderPerspective(openChannels(), area, mode != GLMovieRenderer::Stretch);
    }
    /// Whether renderVideoOrtho() would draw no more than opaque pictures as they are, on black, and those.
    bool isPlain() const { return ChannelGrid::isPlain(openChannels()); }
    std::vector<GLMoviePicture> plainPictures(QRect const& area, GLMovieRenderer::DrawMode mode)
    {
        return _grid.plainPictures(openChannels(), area, mode);
    }
    void videoMouseMove(QPointF point, Qt::KeyboardModifiers modifiers);
    /// The channel whose picture is at a point; empty for none.
    QString channelIdAt(QPointF point) const;
    /// Where a channel's picture may be, as it was last laid out; empty when it is not shown or not flat.
    QRect placeOf(Channel const* channel) const { return _grid.placeOf(openChannels(), channel); }
    /// From where the wall of renderVideoPerspective() is looked at: from -1, left or above, to 1.
    void setViewpoint(QPointF viewpoint);
    /// A click is a press and a release on the same channel. What cannot be undone by a second one waits until that
    /// could be a double click.
    void videoMousePress(QPointF point, Qt::KeyboardModifiers modifiers);
    void videoMouseRelease(QPointF point, Qt::KeyboardModifiers modifiers);
    /// The click that waits was the first of two: it does nothing.
    void videoDoubleClick() { _waitingClick.stop(); }
    /// The digits choose among the open channels, "page up" and "page down" among all. Whether it was one of those.
    bool videoKeyPress(QKeyEvent const* event);
    /// The pointer follows the modifier. Whether the key has no other meaning.
    bool videoKeyRelease(QKeyEvent const* event);

    QString postSponsorshipChannelId() const { return _sponsorship.postSponsorshipChannelId(); }
    Channel* sponsorshipChannel() const { return _sponsorship.channel(); }
    QString sponsorshipChannelId() const;

    // What the service has told of this viewer.
    QString ipAddress() const { return _feed.ipAddress(); }
    void setIpAddress(QString const& address) { _feed.setIpAddress(address); }
    QString countryId() const { return _feed.countryId(); }
    void setCountryId(QString const& id) { _feed.setCountryId(id); }
    QString confidenceFactor() const { return _feed.confidenceFactor(); }
    void setConfidenceFactor(QString const& factor) { _feed.setConfidenceFactor(factor); }

signals:
    void channelOpened(Channel* channel);
    void channelClosed(Channel* channel);
    void channelChanging(Channel* from, Channel* to);
    void channelChanged(Channel* from, Channel* to);
    void streamOpened(Channel* channel, ChannelStream* stream);
    void channelsUpdated();
    void channelLogoUpdated(ChannelDescription description);
    /// Of one channel, or of the directory with null; an empty text takes that back.
    void channelError(Channel* channel, QString text);
    /// The service has answered for the directory, or has not: why, in words. The channels stay.
    void directoryRefreshed(QString problem);
    void channelStateChanged(Channel* channel, QString text);
    void channelAdded(ChannelDescription description);
    void channelRemoved(ChannelDescription description);
    /// More channels beside each other than the account allows.
    void multiviewLimitExceeded();
    void mouseEnteredChannel(QString rootId);
    void mouseLeftChannel(QString rootId);
    void cursorChanged(QCursor cursor);
    void postSponsorshipChannelChanged(QString rootId);
    void sponsorshipLoadCompanionAds(SponsorshipResponse response);
    void sponsorshipDisplayCompanionAds();
    void sponsorshipCloseCompanionAds();
    void speedChanged();
    void pausedChanged();
    /// Something waits to be painted.
    void pictureUpdated();

public slots:
    void onChannelsUpdated();
    void onChannelLogoUpdated(ChannelDescription const& description);
    void onChannelStreamError(Channel* channel, ChannelStream* stream, QString const& text);
    void onChannelStreamStateChanged(Channel* channel, ChannelStream* stream, QString const& text);
    void onChannelStreamClosed(Channel* channel, ChannelStream* stream);
    void onChannelStreamNeedsLoop(Channel* channel, ChannelStream* stream);
    void onFadeAndCloseAllChannels();
    void onMuteChanged();
    void onVolumeChanged();
    void onFullScreenChanged();

private:
    void onUpdateCompleted(bool hasChanged);
    void connectParts();
    static bool isModifierHeld(Qt::KeyboardModifiers modifiers);
    void stay(Channel* channel);
    void reconnectAndStay(Channel* channel);
    void loopLater(Channel* channel);
    void openBeside(QStringList const& ids);
    Channel* chosenChannel() const;
    void openChannelNonMultiview(Channel* channel, bool useSponsorship);
    void openChannelMultiview(Channel* channel, int index);
    void onChannelClicked(Channel* channel);

    static Logger* log;

    AppData& _appData;
    std::unique_ptr<SponsorshipSource> _noSponsorship; ///< Null if another one is used.
    SponsorshipSource* const _sponsorshipSource;
    KnownChannels _known;
    ChannelActions _actions; ///< Of the channels: they go before those.
    RetiredChannels _retired;
    OpenChannels _open;
    ChannelSwitch _switch;
    ChannelGrid _grid;
    ChannelFeed _feed;
    ChannelUpdate _update;
    SponsorshipSequence _sponsorship;
    QString _activeForLater; ///< By their root ids, the channels that closeForLater() has closed.
    QStringList _openForLater;
    QString _channelUnderMouse; ///< Its root id, as the next one.
    QString _pressedChannel;
    QTimer _waitingClick;                 ///< Runs while a click could become a double one.
    std::function<void()> _waitingAction; ///< What it does then.
    bool _channelsLoaded = false;
};
