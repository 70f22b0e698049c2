#pragma once

#include <QList>
#include <QObject>
#include <QStringList>

class Channel;
class Logger;

/// The channels that are open, in the order in which they are shown, and how they play: the active one has the sound,
/// the others play silently beside it. Main thread only.
class OpenChannels : public QObject
{
    Q_OBJECT

public:
    static constexpr int fadeTime = 500; ///< ms

    using QObject::QObject;

    QList<Channel*> const& channels() const { return _channels; }
    int count() const { return static_cast<int>(_channels.size()); }
    /// Their root ids.
    QStringList ids() const;
    bool isEmpty() const { return _channels.isEmpty(); }
    bool contains(Channel const* channel) const;
    Channel* active() const { return _active; }

    /// Shows a channel, at an index or last with -1, and fades it in; the first one becomes the active one. One that
    /// plays unseen already goes on playing.
    void open(Channel* channel, int index);
    /// If it was the active one, the first of the others becomes that.
    void close(Channel* channel);
    void closeAll();
    void setActive(Channel* channel);
    /// Has two of them change places.
    void swap(Channel* one, Channel* other);
    /// Opens a channel unseen and silent, in place of the one before, for open() to show it later.
    void prepareUnseen(Channel* channel);
    /// Closes that, unless it is the wanted one.
    void dropUnseen(Channel const* wanted = nullptr);
    /// The same, if it is that one.
    void dropUnseenOne(Channel const* channel)
    {
        if (channel && channel == _unseen)
            dropUnseen();
    }
    void fadeOut(int ms);
    /// Takes a fadeOut() back.
    void fadeIn(int ms);

    /// What was open and active last, by root ids; what the viewer does not choose again is left out.
    QString lastChannelId() const { return _lastChannelId; }
    void setLastChannelId(QString const& id) { _lastChannelId = id; }
    QStringList lastChannelIds() const { return _lastChannelIds; }
    void setLastChannelIds(QStringList const& ids) { _lastChannelIds = ids; }

    double volume() const { return _volume; }
    void setVolume(double volume);
    bool muted() const { return _muted; }
    void setMuted(bool muted);
    void setWatched(bool watched);
    double speed() const { return _speed; }
    void setSpeed(double speed);
    bool canChangeSpeed() const;

signals:
    void opened(Channel* channel);
    void closed(Channel* channel);
    void changing(Channel* from, Channel* to);
    void changed(Channel* from, Channel* to);
    void pictureUpdated();

private:
    void prepare(Channel* channel, bool muted);
    void saveLast();

    static Logger* log;

    QList<Channel*> _channels;
    Channel* _active = nullptr;
    Channel* _unseen = nullptr; ///< Open, and not among those that are shown.
    QString _lastChannelId;
    QStringList _lastChannelIds;
    double _volume = 1.0;
    double _speed = 1.0;
    bool _muted = false;
    bool _watched = true;
};
