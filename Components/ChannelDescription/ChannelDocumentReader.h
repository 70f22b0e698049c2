#pragma once

#include "ChannelDescription.h"

#include <QByteArray>
#include <QList>
#include <QString>

class Logger;

/// Reads the channel document of the directory service, which is XML: elements "channel", wherever they stand, whose
/// child elements each hold a text. Names are read in whatever case; unknown elements are passed over, and none is
/// required.
///
///     name, unique-short-name, description, website-url, link-text, logo-url
///     has-alerts, has-chat, show-banners         "1" or "true", otherwise false
///     chatroom-name, alerts-topic
///     autobuzz-enabled, repeated-autobuzz        "true", otherwise false
///     autobuzz-interval                          milliseconds
///     channel-type                               "TV", "RADIO", anything else is a secure channel
///     latte-uri, or else streaming-url           the address of the stream
///     additional-latte-uri                       any number: further streams with the same tracks
///     media-profile                              opaque
///     key, provider, profile, fingerprint        for entitlement; a stream with a key is secure
///     unavailable-reason                         the channel cannot be opened, and why
///     purchase-url                               where the channel is sold, to who has not bought it
///     viewer-added                               "1" or "true": a viewer has made it, and others can add it
///
/// An address has to be one of the network; what would name something on this machine is left out. Has no state; any
/// thread.
class ChannelDocumentReader
{
public:
    static constexpr qsizetype maximumBytes = 32 << 20;
    static constexpr int maximumChannels = 20000;
    static constexpr int maximumStreams = 16; ///< Of one channel; further ones are left out.

    struct Entry {
        ChannelDescription description;
        Uri logo; ///< Null when there is none; http or https.
    };

    struct Document {
        QList<Entry> entries;
        QString error; ///< In words; empty when the document was read to its end. There are no entries then.
    };

    static Document read(QByteArray const& xml);

    /// Why the document cannot be read; empty when it can.
    static QString faultOf(QByteArray const& xml);

private:
    class Reading;

    static Logger* log;
};
