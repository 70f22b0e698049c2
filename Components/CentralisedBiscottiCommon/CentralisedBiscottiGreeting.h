#pragma once

#include "CentralisedBiscottiVersion.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The line with which each side opens the link to the central server, before the first message. ASCII:
///
///     "~@" blank PROTOCOL blank MESSAGE blank NOTES line-feed
///
/// PROTOCOL and MESSAGE are versions, two decimal numbers with a dot between them. NOTES are free text and may be
/// empty, but the blank before them stays: the client puts its handshake arguments there, the server what it wants
/// the client to know. When reading, any white space stands for a blank.
class CentralisedBiscottiGreeting
{
public:
    static constexpr char const* BakeryMagicNumber = "~@";

    /// The longest line that is read, its line feed included. A server that has not said what it is gets no more.
    static constexpr int maximumLineBytes = 511;

    CentralisedBiscottiGreeting(CentralisedBiscottiVersion const& protocolVersion,
                                CentralisedBiscottiVersion const& messageVersion, QString const& notes = {});

    /// Reads a line, with or without its end; nothing for one that is too long or is no greeting.
    static std::optional<CentralisedBiscottiGreeting> fromLine(QByteArray const& line);

    /// The whole line with its line feed.
    QByteArray toLine() const;

    CentralisedBiscottiVersion protocolVersion() const { return _protocolVersion; }
    CentralisedBiscottiVersion messageVersion() const { return _messageVersion; }

    /// Without white space around them.
    QString notes() const { return _notes; }

    /// Whether the notes name the longest time for which the client may hear nothing ("MDWMS=" and a number).
    bool hasMaxDataWait() const;

    /// That time in milliseconds; nothing if it is not named, or is larger than 63 bits hold.
    std::optional<qint64> maxDataWaitMs() const;

private:
    CentralisedBiscottiVersion _protocolVersion;
    CentralisedBiscottiVersion _messageVersion;
    QString _notes;
};
