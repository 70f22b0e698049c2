#pragma once

#include <QCursor>

/// The pointers that say what a click on a channel does. GUI thread only.
struct ClickCursors {
    ClickCursors();

    QCursor play;  ///< Replaces what plays.
    QCursor open;  ///< Adds to it.
    QCursor close; ///< Closes the channel.
};
