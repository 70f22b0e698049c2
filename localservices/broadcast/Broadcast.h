#pragma once

#include "BroadcastListener.h"
#include "BroadcastTimeline.h"
#include "SharedPacket.h"

#include <QObject>
#include <QString>

#include <deque>
#include <memory>
#include <vector>

class AsfFile;
class Logger;
class TickCounter;
class Timer;
class TimerFactory;

/// One live broadcast: a playlist of films, of which one runs for ever until the next is asked for, on one clock that
/// all listeners share. Send times, presentation times and object numbers go on growing through repetitions and
/// entries, as if it were one endless film.
///
/// Packets are made only while somebody listens. Lives on one thread.
class Broadcast : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 maximumBurst = 3 << 20; ///< Bytes that a new listener gets at once.

    /// A broadcast of these films, at least one, all owned. A new listener gets `msBurst` of the past at once.
    /// The clock and the factory are borrowed.
    Broadcast(QString const& name, std::vector<std::unique_ptr<AsfFile>> films, int msBurst, TickCounter& tickCounter,
              TimerFactory& timerFactory, QObject* parent = nullptr);
    ~Broadcast() override;

    QString const& name() const { return _name; }
    AsfFile const& film() const { return *_films[_entry]; }
    QByteArray const& header() const { return _header; } ///< With the header of the Data object.
    quint32 playlistGeneration() const { return _generation; }
    int listenerCount() const { return _listening; }

    /// Milliseconds that the broadcast has run for.
    qint64 position() const;

    /// Adds a listener, which at once gets the packets from a key frame on, about as long ago as a burst lasts.
    /// The listener is borrowed until it leaves.
    void join(BroadcastListener* listener);
    void leave(BroadcastListener* listener);

    /// The speed of the clock in percent, 1 to 1000.
    void setRate(int percent);
    int rate() const { return _ratePercent; }

    /// While silent, the packets that are due go nowhere.
    void setSilent(bool silent);
    bool isSilent() const { return _silent; }

    /// Goes on with the next film of the playlist, the same one when it is the only one.
    void nextEntry();

    /// Goes on under a header with another title.
    void changeHeader();

    /// Tells all who listen that the broadcast is over. Those who join later see it running.
    void end();

private:
    void onTimeout();
    void makeHeader();
    void restartClock();
    void burst(BroadcastListener* listener);
    void deliverDue();
    void endDelivery();
    void schedule();
    std::shared_ptr<SharedPacket> packet(qint64 number);
    void forgetOldPackets();
    template<typename Call>
    void forEachListener(Call call);

    QString const _name;
    std::vector<std::unique_ptr<AsfFile>> const _films;
    int const _msBurst;
    TickCounter& _tickCounter;
    TimerFactory& _timerFactory;
    Timer* _timer;

    size_t _entry = 0;
    quint32 _generation = 1;
    int _headerEdition = 1;
    QByteArray _header;

    qint64 _msClockStart = 0;   ///< The tick counter's time at which the clock was last set ...
    qint64 _msPositionThen = 0; ///< ... and what it was set to.
    int _ratePercent = 100;
    bool _silent = false;

    BroadcastTimeline _timeline;
    quint32 _firstLocation = 0;        ///< The location id of the timeline's packet 0.
    QMap<int, quint32> _objectsBefore; ///< Media objects of each stream in the entries before this one.
    qint64 _next = 0;                  ///< The packet that is delivered next.
    std::deque<std::pair<qint64, std::shared_ptr<SharedPacket>>> _recent; ///< Packets made, by number.

    std::vector<BroadcastListener*> _listeners; ///< Null where one left during a delivery.
    int _listening = 0;                         ///< How many are not null.
    int _deliveries = 0;                        ///< That are under way.

    static Logger* log;
};
