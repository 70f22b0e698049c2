#pragma once

#include "BroadcastListener.h"
#include "ClientStreams.h"
#include "Fault.h"
#include "MmsTcpReport.h"
#include "MmsTcpRequestReader.h"
#include "ServiceConnection.h"

#include <QPointer>

class Broadcast;
class Logger;
class MmsTcpServer;

/// One session of MMS over TCP: connect, measure if wished, make the funnel, open a stream, read its header, switch
/// streams, play. A client that leaves this order, or sends what is no message, loses its connection.
class MmsTcpConnection : public ServiceConnection, private BroadcastListener
{
    Q_OBJECT

public:
    static constexpr qint64 msForGreeting = 10'000;  ///< Until the first message.
    static constexpr qint64 msForRequest = 60'000;   ///< Until the next message of a client that does not play.
    static constexpr qint64 msBetweenPings = 20'000; ///< For a client that has said nothing since.
    static constexpr int maximumSwitches = 256;

    /// Results in reports.
    static constexpr quint32 success = 0;
    static constexpr quint32 moreFollows = 1; ///< Of an end of stream: another entry comes.
    static constexpr quint32 accessDenied = 0x80070005;
    static constexpr quint32 fileNotFound = 0x80070002;
    static constexpr quint32 badParameter = 0x80070057;

    /// The server is borrowed and outlives the connection.
    MmsTcpConnection(std::unique_ptr<QTcpSocket> socket, MmsTcpServer& server);
    ~MmsTcpConnection() override;

    QString path() const override;

protected:
    void received(QByteArray const& bytes) override;
    void check(qint64 msNow) override;
    void over() override;

private:
    enum class State { New, Connected, Funnel, Open, Playing };

    int beginsWith() const override { return _streams.picture(); }
    void packetArrived(SharedPacket const& packet) override;
    void headerChanged(Change change) override;
    void ended() override;

    void handle(MmsTcpRequest const& request);
    void connectPlayer();
    void connectFunnel(QByteArray const& body);
    void openFile(QByteArray const& body);
    void readBlock(QByteArray const& body);
    void switchStreams(QByteArray const& body);
    void startPlaying(QByteArray const& body);

    /// What goes wrong with this step: false when the step is not to be answered. The result is changed if need be.
    bool passes(Fault::Step step, quint32& result);
    bool isIn(State lowest, char const* what);
    void report(MmsTcpReport::Type type, QByteArray const& body);
    void sendHeader();
    void leave();

    MmsTcpServer& _server;
    MmsTcpRequestReader _reader;
    State _state = State::New;
    quint16 _sequence = 0;
    qint64 const _msBegin;
    qint64 _msLastHeard;
    qint64 _msLastPing;
    bool _silent = false;

    QPointer<Broadcast> _broadcast; ///< The open stream.
    QByteArray _headerSent;         ///< The last one.
    quint8 _headerIncarnation = 2;
    quint8 _incarnation = 3;
    ClientStreams _streams;
    bool _cutHeader = false;
    int _packetsUntilCut = -1;

    static Logger* log;
};
