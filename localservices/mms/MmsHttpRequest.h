#pragma once

#include "Fault.h"
#include "HttpRequest.h"
#include "StreamSelection.h"

#include <QList>
#include <QString>

/// What a player asks for by a request of MMS over HTTP. A value, read from the request's Pragma lines.
class MmsHttpRequest
{
public:
    static constexpr int maximumSwitches = 256;

    explicit MmsHttpRequest(HttpRequest const& request);

    /// Describe, Play, Select, Log, Stop; Any for one that asks for nothing, as a sign of life does.
    Fault::Step step() const { return _step; }

    QString const& path() const { return _path; }

    /// The number that an earlier answer gave the client; 0 when it has none.
    quint32 clientId() const { return _clientId; }

    QList<StreamSelection::Switch> const& switches() const { return _switches; }

    /// Bits per second that the client's line carries; 0 when it does not say.
    qint64 linkBandwidth() const { return _linkBandwidth; }

    /// Whether the client knows playlists: metadata chunks, and ends of entries that are followed by another.
    bool knowsPlaylists() const { return _knowsPlaylists; }

private:
    void readPragma(QByteArray const& token);
    void readSwitches(QByteArray const& entries);

    Fault::Step _step = Fault::Step::Any;
    QString _path;
    quint32 _clientId = 0;
    QList<StreamSelection::Switch> _switches;
    qint64 _linkBandwidth = 0;
    bool _knowsPlaylists = false;
    bool _plays = false;
    bool _stops = false;
    bool _selects = false;
};
