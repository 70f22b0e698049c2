#pragma once

#include "ChannelDescription.h"

#include <QList>
#include <QObject>

/// Turns a source of channels into a list of their descriptions, and says when the list or a logo has changed.
///
/// Lives on the thread that made it, where the list changes and the signals are emitted: between two returns to the
/// event loop the list stays as it is.
class ChannelDescriptionProvider : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual long long numChannels() const = 0;

    /// Null for an index that is out of range.
    virtual ChannelDescription descriptionAt(long long index) const = 0;

    /// From now on the list follows its source.
    virtual void start() = 0;

    /// The list stays as it is from now on.
    virtual void stop() = 0;

    /// Deletes this, which nobody owns but perhaps a parent, later: when nothing that it has begun on another thread
    /// runs any more. A dialog that a slot of its signals has opened may see it go: after a signal it touches nothing
    /// of itself, or asks whether it is still there.
    virtual void retire() { deleteLater(); }

public slots:
    /// Reads the source again.
    virtual void refresh() = 0;

    /// Emits channelsUpdated().
    virtual void updated();

    /// Emits channelLogoUpdated().
    virtual void logoUpdated(ChannelDescription description);

protected:
    /// The same for one after the other.
    void logosUpdated(QList<ChannelDescription> const& descriptions);

signals:
    void channelsUpdated();

    /// The description that has a new logo.
    void channelLogoUpdated(ChannelDescription description);
};
