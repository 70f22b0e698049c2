#pragma once

#include "MmsClient.h"

#include <QMap>
#include <QUuid>

class DateTimeBuilder;
class MemoQueue;
class MmsFarewells;

/// What the transports have in common: the session's numbers, and the selection of streams by its header.
class AbstractMmsClient : public MmsClient
{
public:
    QString remoteUrl() const override { return _url.toString(); }
    MmsClientState state() const override { return _state; }
    MmsClientError error() const override { return _error; }
    qint64 streamBitrate() const override { return _streamBitrate; }
    qint64 totalBytesReceived() const override { return _totalBytes; }
    qint64 downstreamBandwidth() const override { return _downstreamBandwidth; }
    int packetSize() const override { return _packetSize; }
    void setClientId(QString const& id) override { _clientId = id; }
    QString clientId() const override { return _clientId; }

    /// What servers have not heard when the client goes is told them this way; borrowed, null for none.
    void setFarewells(MmsFarewells* farewells) { _farewells = farewells; }

protected:
    /// The GUID, with braces or without, is what servers know this viewer by; clock and queue are borrowed.
    AbstractMmsClient(QString const& guid, DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue, QObject* parent)
        : MmsClient(parent), _guid(guid), _dateTimeBuilder(dateTimeBuilder), _memoQueue(memoQueue)
    {
    }

    /// Takes bit rate, packet size and selection from an ASF header, and rewrites it for the selection. It is empty
    /// then when that cannot be done; false when it is no header.
    bool openHeader(QByteArray& header);

    QUuid _guid;
    DateTimeBuilder* const _dateTimeBuilder;
    MemoQueue* const _memoQueue;
    MmsFarewells* _farewells = nullptr;
    MmsClientState _state = Unconnected;
    MmsClientError _error = NoError;
    QUrl _url;
    QString _clientId;
    int _timeout = 0; ///< Milliseconds.
    qint64 _totalBytes = 0;
    qint64 _downstreamBandwidth = 0;
    QMap<int, int> _selection; ///< ASF stream number to 0, wanted, or 2, switched off.
    qint64 _streamBitrate = 1;
    int _packetSize = -1;
};
