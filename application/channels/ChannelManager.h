#pragma once

#include "ChannelDescription.h"
#include "GLMovieRenderer.h"

#include <QCursor>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class AppData;
class Channel;
class ChannelStream;
class Logger;

/// Owns every channel, knows which are open and which is active, and is the only way to open or close one.
///
/// The active channel has the sound; the others play silently beside it. Main thread only.
class ChannelManager : public QObject
{
    Q_OBJECT

public:
    static constexpr int fadeTime = 500; ///< ms

    explicit ChannelManager(AppData& appData, QObject* parent = nullptr);
    ~ChannelManager() override;

    /// Adds a channel of the viewer's own, or gives the one that has this root id already.
    Channel* addUserChannel(ChannelDescription const& description);
    /// Closes and forgets a channel.
    void removeUserChannel(Channel* channel);

    /// Opens a channel: alone, after the others have faded out, with nonMultiview or when nothing is open; otherwise
    /// beside the others, at `index` or last with -1. One that is open becomes the active one.
    void openChannel(Channel* channel, bool nonMultiview, int index = -1);
    void closeChannel(Channel* channel);
    void closeAllChannels();
    void fadeAndCloseAllChannels(int ms);
    /// Closes what is open, and what was about to be, until openLastChannels().
    void closeForLater();
    /// Opens again what was open before the last closeAllChannels() or closeForLater().
    void openLastChannels();
    /// Closes a channel and opens it in the same place.
    void reconnectChannel(Channel* channel);

    /// Whether a text is an address, with a scheme and "://", rather than a file name.
    static bool isAddress(QString const& text);
    /// Opens an address, for which isAddress() holds, as a channel of its own, beside or in place of the others.
    void openUserStream(QString const& url, QString const& title, bool nonMultiview);
    /// The same for a file.
    void openFile(QString const& path, bool nonMultiview);

    void setActiveChannel(Channel* channel);
    Channel* activeChannel() const { return _activeChannel; }
    QList<Channel*> openChannels() const { return _openChannels; }
    bool isChannelOpen(Channel* channel) const { return _openChannels.contains(channel); }
    Channel* getChannelByRootId(QString const& rootId) const { return _byRootId.value(rootId); }

    void setVolume(double volume);
    double volume() const { return _volume; }
    void setMuted(bool muted);
    /// Whether somebody looks at the surface: pictures that nobody sees cost little more than their decoding.
    void setWatched(bool watched);
    bool muted() const { return _muted; }
    /// The speed of whatever plays and will play, 1.0 at first. What cannot seek, such as a live stream, plays at 1.0
    /// whatever is chosen, since it would run dry or fall behind.
    void setSpeed(double speed);
    double speed() const { return _speed; }
    /// Whether some of what plays, or is about to, can go at the chosen speed; true when nothing is open.
    bool canChangeSpeed() const;
    void seekForwards(double seconds);
    void seekBackwards(double seconds);

    /// The root id part of a file name or address: its UTF-8 bytes in hexadecimal.
    static QString channelIdFromFileName(QString const& name);

    /// Draws the open channels side by side, in pixels of the surface, y downward. GL context current.
    void renderVideoOrtho(QRect const& area, GLMovieRenderer::DrawMode mode);

    /// Whether renderVideoOrtho() would draw no more than opaque pictures as they are, on black.
    bool isPlain() const;
    /// Those pictures, to be shown without OpenGL in its place.
    std::vector<GLMoviePicture> plainPictures(QRect const& area, GLMovieRenderer::DrawMode mode);

    /// The pointer over a point of the surface, for what a click there does.
    QCursor cursorAt(QPointF point) const;

    /// A click on the surface: reconnects a channel in error, or makes the clicked one active.
    void videoMousePress(QPointF point);

signals:
    void channelOpened(Channel* channel);
    void channelClosed(Channel* channel);
    void channelChanging(Channel* from, Channel* to);
    void channelChanged(Channel* from, Channel* to);
    void streamOpened(Channel* channel, ChannelStream* stream);
    void channelsUpdated();
    void channelError(Channel* channel, QString text);
    void channelStateChanged(Channel* channel, QString text);
    void channelAdded(ChannelDescription description);
    void channelRemoved(ChannelDescription description);
    void speedChanged();
    /// Something waits to be painted.
    void pictureUpdated();

public slots:
    void onChannelStreamError(Channel* channel, ChannelStream* stream, QString text);
    void onChannelStreamStateChanged(Channel* channel, ChannelStream* stream, QString text);
    void onChannelStreamNeedsLoop(Channel* channel, ChannelStream* stream);
    void onFadeAndCloseAllChannels();
    void onMuteChanged();
    void onVolumeChanged();

private:
    Channel* addChannel(std::unique_ptr<Channel> channel);
    void openChannelNonMultiview(Channel* channel);
    void openChannelMultiview(Channel* channel, int index);
    void openPending();
    void saveLastChannels();
    Channel* channelAt(QPointF point) const;
    /// The part of the area that belongs to the open channel of that index.
    QRect cell(QRect const& area, int index) const;

    static Logger* log;

    AppData& _appData;
    std::vector<std::unique_ptr<Channel>> _channels;
    QList<Channel*> _openChannels; ///< In display order.
    QHash<QString, Channel*> _byRootId;
    Channel* _activeChannel = nullptr;
    QString _pendingChannelId; ///< What opens when the fade is over; empty for nothing.
    QStringList _waitingIds;   ///< What opens beside it then.
    QStringList _lastChannelIds;
    QString _lastChannelId;
    QRect _lastArea;
    double _volume = 1.0;
    double _speed = 1.0;
    bool _muted = false;
    bool _watched = true;
};
