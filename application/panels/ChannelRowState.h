#pragma once

#include <QColor>
#include <QHash>
#include <QObject>
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
class ChannelRowStates : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Empty for Closed.
    static QString text(ChannelRowState state);
    /// Of a mark beside the text, on the base of the palette.
    static QColor colour(ChannelRowState state, QPalette const& palette);

    ChannelRowState of(QString const& id) const;
    bool isOpen(QString const& id) const { return _open.contains(id); }
    int openCount() const { return static_cast<int>(_open.size()); }
    QString active() const { return _active; }

    void open(QString const& id);
    void close(QString const& id);
    /// The channel that has the sound; empty for none.
    void setActive(QString const& id);
    /// The channel that is shown for a look only; empty for none.
    void setPreview(QString const& id);
    /// How a channel that is open does: Acquiring, Failed or Playing.
    void setState(QString const& id, ChannelRowState state);

signals:
    /// The row of that channel may have another state.
    void changed(QString const& id);

private:
    enum class Health { Acquiring, Playing, Failed };

    QHash<QString, Health> _open;
    QString _active;
    QString _preview;
};
