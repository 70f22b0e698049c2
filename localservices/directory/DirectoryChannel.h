#pragma once

#include "ChannelFields.h"

#include <QMap>
#include <QString>
#include <QStringList>

/// An entry of the directory. A value. Its addresses may begin with a service of this machine in braces instead of
/// scheme, host and port: {mms-http}, {mms-tcp}, {web}, {rtsp}; see ServicePlaces.
struct DirectoryChannel {
    static constexpr qsizetype longestId = 64;
    static constexpr int maximumStreams = 9;

    QString id;       ///< Letters, digits, "-" and "_"; its case counts.
    qint64 owner = 0; ///< The account that has made it; 0 for a partner's.
    QStringList uris; ///< Of its streams, the first tried first.

    /// What was said of it, by the name of the field.
    QMap<QString, QString> fields;

    bool isNull() const { return id.isEmpty(); }
    bool isSecure() const { return !field("key").isEmpty(); }

    /// The content of a field, its initial one if nothing was said.
    QString field(char const* name) const;

    /// What stands against it, or nothing.
    QString fault() const;

    static bool isId(QString const& text);
};
