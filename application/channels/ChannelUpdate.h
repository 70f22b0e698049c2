#pragma once

#include "ChannelDescription.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

class ChannelDescriptionProvider;
class ChannelManager;
class KnownChannels;
class Logger;
class Timer;
class TimerFactory;

/// Makes the directory follow its provider, in slices: thousands of channels may change at once, and what plays must
/// not wait for that. A small change is over when begin() returns. Main thread only.
class ChannelUpdate : public QObject
{
    Q_OBJECT

public:
    /// ms, a quarter of what a picture has at 60 a second: a turn of the event loop may begin with the end of one
    /// slice, and run another.
    static constexpr int sliceTime = 4;
    static constexpr int minimumSteps = 16;

    /// All are borrowed.
    ChannelUpdate(ChannelManager& channels, KnownChannels& known, TimerFactory* timers, QObject* parent = nullptr);
    ~ChannelUpdate() override;

    /// Takes what the provider has now, in place of what an update under way still had to do.
    void begin(ChannelDescriptionProvider const& provider);
    void cancel();
    bool isRunning() const { return _isRunning; }
    /// A logo that has come since begin(): what is still to be done has the one before.
    void noteLogo(ChannelDescription const& description);

signals:
    /// The directory is as the provider is, and was not so before if it has changed.
    void completed(bool hasChanged);

private:
    void run();
    bool step();
    void compare(ChannelDescription const& provided);
    ChannelDescription withNewestLogo(ChannelDescription description) const;
    void findGone();
    void modify(ChannelDescription const& description);
    void end();

    static Logger* log;

    ChannelManager& _channels;
    KnownChannels& _known;
    TimerFactory* const _timers;
    Timer* const _timer;                 ///< Of the factory: to the next slice.
    QList<ChannelDescription> _provided; ///< Compared up to _compared.
    qsizetype _compared = 0;
    QSet<QString> _providedIds;
    bool _isCompared = false; ///< The next three are known, and worked off.
    QStringList _gone;
    QList<ChannelDescription> _modified;
    QList<ChannelDescription> _added;
    QHash<QString, ChannelLogo> _logos; ///< By root id: those that have come meanwhile.
    bool _isRunning = false;
    bool _hasChanged = false; ///< By an update that was not completed, too.
    bool _isSorted = true;    ///< No title has changed, in an update that was not completed either.
    int _number = 0;          ///< Of the update; changes when it is cancelled, too.
};
