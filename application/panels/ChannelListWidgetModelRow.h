#pragma once

#include "ChannelDescription.h"
#include "ChannelRowState.h"

#include <QMetaType>
#include <QString>

/// A row of the channel list: a channel, what the list knows of it, and what is prepared for filter and order. A
/// value.
struct ChannelListWidgetModelRow {
    explicit ChannelListWidgetModelRow(ChannelDescription const& of) { setDescription(of); }

    /// Prepares anew what depends on it. False if that is as it was.
    bool setDescription(ChannelDescription const& of);

    QString const& id() const { return rootId; }
    /// Whether it is sold, and not bought yet.
    bool isForSale() const;
    /// Whether the viewer can take it off the list.
    bool isDeletable() const;
    /// What stands below the title: the summary, or why the channel cannot be watched.
    QString subtitle() const;

    ChannelDescription description;
    ChannelRowState state = ChannelRowState::Closed;
    bool hasAlertsOn = false;
    bool isFavourite = false;

    // Of the description.
    QString rootId;
    QString title; ///< As much of it as can be shown.
    QString summary;
    QString languages; ///< By name, of sound and pictures.
    QString filterKey; ///< Folded: title and languages.
    QString sortKey;
};

Q_DECLARE_METATYPE(ChannelListWidgetModelRow const*)
