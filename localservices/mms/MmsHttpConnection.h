#pragma once

#include "BroadcastListener.h"
#include "ClientStreams.h"
#include "HttpRequestReader.h"
#include "MmsHttpRequest.h"
#include "ServiceConnection.h"

#include <QPointer>

class Broadcast;
class Logger;
class MmsHttpServer;

/// One connection of MMS over HTTP: requests one after the other, until one plays; then it is the stream's to its
/// end.
class MmsHttpConnection : public ServiceConnection, private BroadcastListener
{
    Q_OBJECT

public:
    static constexpr qint64 msForRequest = 10'000; ///< For the first one, and from the begin of one to its end.
    static constexpr qint64 msBetweenRequests = 60'000;

    /// The server is borrowed and outlives the connection.
    MmsHttpConnection(std::unique_ptr<QTcpSocket> socket, MmsHttpServer& server);
    ~MmsHttpConnection() override;

    QString path() const override { return _path; }

    /// From now on it gets what it wishes by these.
    void setSwitches(QList<StreamSelection::Switch> const& switches);

protected:
    void received(QByteArray const& bytes) override;
    void check(qint64 msNow) override;
    void over() override;

private:
    int beginsWith() const override { return _streams.picture(); }
    void packetArrived(SharedPacket const& packet) override;
    void headerChanged(Change change) override;
    void ended() override;

    void handle(HttpRequest const& request);
    bool handleFault(MmsHttpRequest const& request);
    void describe(MmsHttpRequest const& request, Broadcast const& broadcast);
    void play(MmsHttpRequest const& request, Broadcast& broadcast);
    void select(MmsHttpRequest const& request);
    void stop(MmsHttpRequest const& request);
    void reply(int status, QByteArrayList const& headers, QByteArray const& body);
    void finishStream(quint32 reason);
    void leave();

    MmsHttpServer& _server;
    HttpRequestReader _reader;
    qint64 _msLastRequest;    ///< When one ended, or the connection began.
    qint64 _msRequestBegin;   ///< Of the one that is under way.
    bool _isInRequest = true; ///< The first one is expected at once.
    bool _keepAlive = true;
    bool _withBody = true; ///< Not for a request by HEAD.
    bool _silent = false;  ///< Takes requests and answers none, as a fault asks for.

    QString _path;
    QPointer<Broadcast> _broadcast; ///< Null unless it plays.
    quint32 _clientId = 0;
    bool _knowsPlaylists = false;
    ClientStreams _streams;
    qsizetype _bytesOfHeaderUntilCut = -1; ///< Not negative when a fault cuts the stream's header off there.
    int _packetsUntilCut = -1;

    static Logger* log;
};
