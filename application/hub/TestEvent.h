#pragma once

#include <QMetaType>
#include <QString>

/// What test mode has found out about one channel, as a copyable value.
struct TestEvent {
    QString rootId;
    QString title;
    bool isPlaying = false;
    QString error; ///< What the channel has told, if it has failed.
};

Q_DECLARE_METATYPE(TestEvent)
