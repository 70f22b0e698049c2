#pragma once

#include <QColor>
#include <QCoreApplication>
#include <QHash>
#include <QPalette>
#include <QString>

/// How a channel of a row plays, in the order in which rows are sorted by it.
enum class ChannelRowState {
    Playing,    ///< It has the sound.
    Previewing, ///< The same, for a look at it only.
    Open,       ///< Beside that.
    Acquiring,  ///< Open, and without picture or sound as yet.
    Failed,     ///< Open, with an error.
    Closed,
};

/// What a state is called and coloured, and what it is of each channel that is open: told of the events, asked by
/// root id. Main thread only.
class ChannelRowStates
{
    Q_DECLARE_TR_FUNCTIONS(ChannelRowStates)

public:
    /// Empty for Closed.
    static QString text(ChannelRowState state);
    /// Of a mark beside the text, on the base of the palette.
    static QColor colour(ChannelRowState state, QPalette const& palette);

    ChannelRowState of(QString const& id) const;
    bool isOpen(QString const& id) const { return _open.contains(id); }
    int openCount() const { return static_cast<int>(_open.size()); }
    QString active() const { return _active; }

    void open(QString const& id) { _open.insert(id, Health::Acquiring); }
    void close(QString const& id);
    void setActive(QString const& id) { _active = id; }
    /// Empty for none.
    void setPreview(QString const& id) { _preview = id; }
    void setPlaying(QString const& id) { setHealth(id, Health::Playing); }
    void setAcquiring(QString const& id) { setHealth(id, Health::Acquiring); }
    void setFailed(QString const& id) { setHealth(id, Health::Failed); }

private:
    enum class Health { Acquiring, Playing, Failed };
    void setHealth(QString const& id, Health health);

    QHash<QString, Health> _open;
    QString _active;
    QString _preview;
};
