#pragma once

#include "ChannelDescription.h"

#include <QByteArray>
#include <QList>
#include <QString>

class Logger;

/// Reads the local channel file, which is XML. Any element may hold the channels; the names of elements are read in
/// whatever case, those of attributes as they stand. A channel is
///
///     <channel name="TITLE" id="ID" url="ADDRESS" type="file|tv|radio"><description>TEXT</description></channel>
///
/// Its tracks are French or Italian if the id ends in "_fr" or "_it", otherwise English. An address of a file is a
/// path below the directory of the channel file. Has no state; any thread.
class ChannelFileReader
{
public:
    static constexpr int maximumChannels = 20000; ///< What follows is an error.

    struct Result {
        QList<ChannelDescription> channels; ///< Those that were complete before the error, if there is one.
        QString error;                      ///< In words; empty when all was read.
        bool hasBegun = false;              ///< Whether there was an element at all.
    };

    /// `directory` is that of the channel file.
    static Result read(QByteArray const& xml, QString const& directory);

private:
    class Reading;

    static Logger* log;
};
