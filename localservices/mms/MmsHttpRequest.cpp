#include "MmsHttpRequest.h"

#include "BroadcastCatalogue.h"

MmsHttpRequest::MmsHttpRequest(HttpRequest const& request)
    : _path(BroadcastCatalogue::nameOf(QString::fromUtf8(request.target)))
{
    for (QByteArray const& line : request.values("pragma")) {
        for (QByteArray const& token : line.split(','))
            readPragma(token.trimmed());
    }
    _knowsPlaylists = request.values("supported").join(',').contains("com.microsoft.wm.predstrm");
    bool const isLog = request.value("content-type").startsWith("application/x-wms-LogStats");
    if (request.method == "POST")
        _step = isLog      ? Fault::Step::Log
                : _stops   ? Fault::Step::Stop
                : _selects ? Fault::Step::Select
                           : Fault::Step::Any;
    else
        _step = _plays ? Fault::Step::Play : Fault::Step::Describe;
}

void MmsHttpRequest::readPragma(QByteArray const& token)
{
    qsizetype const equals = token.indexOf('=');
    QByteArray const name = token.left(equals).toLower();
    QByteArray const value = equals < 0 ? QByteArray() : token.mid(equals + 1);
    if (name == "xplaystrm")
        _plays = value == "1";
    else if (name == "xstopstrm")
        _stops = value == "1";
    else if (name == "xplaynextentry" || name == "stream-switch-count")
        _selects = true;
    else if (name == "client-id")
        _clientId = value.toUInt();
    else if (name == "linkbw")
        _linkBandwidth = qMax(value.toLongLong(), 0);
    else if (name == "stream-switch-entry")
        readSwitches(value);
}

/// Blank-separated entries "FROM:TO:VALUE", the first two in hexadecimal and decimal as players write them.
void MmsHttpRequest::readSwitches(QByteArray const& entries)
{
    _selects = true;
    for (QByteArray const& entry : entries.simplified().split(' ')) {
        QByteArrayList const parts = entry.split(':');
        if (parts.size() != 3 || _switches.size() >= maximumSwitches)
            continue;
        bool isStream = false;
        StreamSelection::Switch wish;
        wish.from = parts.at(0).toLower() == "ffff" ? 0xFFFF : parts.at(0).toInt();
        wish.to = parts.at(1).toInt(&isStream);
        int const value = parts.at(2).toInt();
        if (!isStream || value < StreamSelection::Full || value > StreamSelection::Off)
            continue;
        wish.value = static_cast<StreamSelection::Value>(value);
        _switches.append(wish);
    }
}
