#pragma once

#include "AbstractMmsClient.h"

#include <QAbstractSocket>
#include <QDateTime>
#include <QList>
#include <QSet>

#include <memory>

class Logger;
class Memo;
class TcpMmsMessage;
class TcpSocket;
class TcpSocketFactory;
class TimerFactory;
struct TcpMmsFileInfo;

/// MMS over TCP: commands, reports and data on one connection, by default to port 1755.
///
/// All that the socket signals becomes a memo on the client's queue, in the order it came; the memos' handlers
/// (TcpMmsMessageHandler) call the operations below, which are the steps of the conversation:
/// Connect, perhaps FunnelInfo, ConnectFunnel, OpenFile, ReadBlock, the header, StreamSwitch, StartPlaying, the data.
///
/// A session ends with done(), once, or with disconnectFromServer(); its memos and its socket are gone by then. Slots
/// on the signals may begin a new session or delete the client.
class TcpMmsClient : public AbstractMmsClient
{
    Q_OBJECT

public:
    static constexpr quint16 defaultPort = 1755;
    static constexpr qint64 maximumHeaderBytes = 4 << 20; ///< Of the ASF header; pictures in it make it large.
    static constexpr int maximumPacketSize = 65527;       ///< An ASF packet of more does not fit a data packet.
    static constexpr qint64 sliceBytes = 64 << 10; ///< Read at a time; the rest waits until these have been handled.
    static constexpr qint64 maximumUselessBytes = 2 << 20; ///< A server that sends so many without media is left.
    static constexpr qint64 maximumUnsentBytes = 64 << 10; ///< Of answers to a server that does not read them.

    /// The GUID, with braces or without, names this viewer to servers. All objects are borrowed and outlive the
    /// client.
    TcpMmsClient(QString const& guid, TimerFactory* timerFactory, TcpSocketFactory* tcpSocketFactory,
                 DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue, QObject* parent);
    ~TcpMmsClient() override;

    /// Not possible here: false.
    bool getHeader(QUrl const& url, int timeout, QByteArray& header) override;
    void connectToServer(QUrl const& url, QString const& referrer, int timeout) override;
    void disconnectFromServer() override;
    bool isSeekable() const override { return false; }
    bool isBroadcast() const override { return false; }
    StreamingProtocol protocol() override { return MmsTcp; }
    void setReading(bool reading) override;
    bool isReading() const { return _isReading; }

    // What the server told.
    void setPlayIncarnation(unsigned int incarnation) { _playIncarnation = incarnation; }
    void setMmsFile(TcpMmsFileInfo* file); ///< Becomes the owner.
    void setAuthenticationPackage(QString const& package);
    void setServerVersionInfo(QString const& info);

    /// The type of the last message sent in this session that has an answer, TcpMmsMessage::NoMessage before.
    quint32 lastMessage() const { return _lastMessage; }
    quint16 lastSequence() const { return _lastSequence; } ///< Its sequence number.

    /// Remembers the present moment as one at which the bandwidth was looked at; whether there are more than two.
    bool addBandwidthCheckPoint();

    void readingHeader();           ///< The header comes next.
    void readingNewHeader();        ///< That of another stream, within the time for an answer whatever else comes.
    void startStreaming();          ///< Data packets come next.
    void stopStreaming(bool error); ///< Ends the session: RemoteServerClosed on error, else EndOfStream.
    void startReadTimer();          ///< Limits silence from now on.
    void sliceHandled();            ///< What was read has been handled: more can be.

    // Memos: the client queues them and remembers those that are pending.
    void handleNow(Memo* memo);
    void handleSoon(Memo* memo, int ms);
    void removeHandler(Memo* memo); ///< It has been handled.
    void clearHandlers();           ///< Cancels all.

    /// Numbers and sends a message. Whether it was sent: one that is too long ends the session.
    bool sendMessage(TcpMmsMessage& message);
    void sendLinkViewerToMacConnect();
    void sendLinkViewerToMacConnectFunnel();
    void sendLinkViewerToMacFunnelInfo();
    void sendLinkViewerToMacOpenFile();
    void sendLinkViewerToMacReadBlock();
    void sendLinkViewerToMacStreamSwitch();
    void sendLinkViewerToMacStartPlaying();
    void sendLinkViewerToMacStopPlaying(); ///< Only logs: servers are told by CloseFile.
    void sendLinkViewerToMacCloseFile();
    void sendLinkViewerToMacPong();

    void handleTimeout();         ///< Ends the session: an answer did not come.
    void handleReadTimeout();     ///< Ends the session: nothing came.
    void handleError(int result); ///< Ends the session: a negative result came. Refused streams are asked for anew.

    /// Takes a data packet: a piece of the header, or of the stream.
    void handleData(unsigned int locationId, unsigned char incarnation, QByteArray const& bytes);

    /// Looks at the complete header, and selects streams. False when it cannot be used.
    bool processHeader();

    /// Forgets all of the session but its state, its error and what it received in all.
    void resetSession();

    /// Ends the session, if there is one: closes the connection, resets, and emits done().
    void endSession(MmsClientState state, MmsClientError error);

public slots:
    void transportConnected(TcpSocket* socket);
    void transportDisconnected(TcpSocket* socket);
    void transportReadyRead(TcpSocket* socket);
    void transportError(TcpSocket* socket, QAbstractSocket::SocketError error);

private:
    void closeSocket();
    void readSlice();
    void cutUp(QByteArray const& bytes);
    void sendRequest(TcpMmsMessage& message);
    void startTimer();
    void handleHeaderData(unsigned int locationId, QByteArray const& bytes);
    void headerCompleted();

    static Logger* log;

    [[maybe_unused]] TimerFactory* const _timerFactory;
    TcpSocketFactory* const _tcpSocketFactory;

    TcpSocket* _socket = nullptr; ///< The factory's; null when there is no session.
    bool _inSession = false;      ///< From connectToServer() until the session ends: done() is due once.
    bool _outOfStep = false;      ///< What comes is not looked at any more.
    bool _isReading = true;
    bool _isSliceUnderWay = false; ///< The memos of the bytes read last are pending.
    bool _isTransportOver = false; ///< What is in the socket still counts.

    // Of the session, see resetSession().
    QSet<Memo*> _handlers; ///< Pending ones; the queue owns them.
    std::unique_ptr<TcpMmsFileInfo> _file;
    quint32 _lastMessage = 0;
    quint16 _lastSequence = 0;
    quint16 _sequence = 0; ///< Of the next message.
    quint64 _timeSent = 0;
    quint32 _openCounter = 0;
    quint32 _playIncarnation = 0;
    QString _authenticationPackage;
    QString _serverVersionInfo;
    QByteArray _receiveBuffer;
    qint64 _uselessBytes = 0;                     ///< Since the last media.
    qint64 _headerAllowance = maximumHeaderBytes; ///< Bytes of headers that are not useless yet.
    QByteArray _headerBuffer;
    unsigned int _expectedLocationId = 0;
    bool _selectionRefused = false;
    QList<QDateTime> _bandwidthCheckPoints;
};
