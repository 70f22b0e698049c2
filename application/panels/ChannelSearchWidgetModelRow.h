#pragma once

#include "ChannelDescription.h"
#include "ChannelRowState.h"
#include "SoapUserChannel.h"
#include "Uri.h"

#include <QImage>
#include <QMetaType>
#include <QString>

/// A row of the search: a channel that some viewer has made. A value.
struct ChannelSearchWidgetModelRow {
    explicit ChannelSearchWidgetModelRow(SoapUserChannel const& found);

    QString id;
    double rating = 0.0; ///< 0 to 5.
    /// As it is opened to look at it: of type UserChannel, and not on the viewer's list. Its addresses are of the
    /// network; without one it is not available.
    ChannelDescription description;
    Uri logoUri; ///< Null when there is none.
    QString title;
    QString summary;
    QString sortKey;
    ChannelRowState state = ChannelRowState::Closed;
    bool isAdded = false;
};

Q_DECLARE_METATYPE(ChannelSearchWidgetModelRow const*)
