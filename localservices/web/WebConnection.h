#pragma once

#include "WebRequest.h"

#include <QObject>
#include <QSslSocket>

#include <optional>

class Logger;
struct WebFault;

/// Looks after one connection of the web service beside the HTTP module, which has no bounds of its own: how much a
/// request may be, how long it may take, one request at a time. Writes the answers. Belongs to its socket and lives
/// on its thread.
class WebConnection : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 maximumRequest = 96 << 10; ///< Bytes of one, header and body.
    static constexpr qint64 maximumBody = 64 << 10;
    static constexpr qint64 msForRequest = 10'000; ///< From the connection's begin, or a request's, to its end.
    static constexpr qint64 msBetweenRequests = 60'000;
    static constexpr qint64 msForAnswer = 60'000; ///< For the client to take it.

    WebConnection(QSslSocket* socket, qint64 msNow);

    /// That of a socket.
    static WebConnection* of(QObject* socket) { return socket->findChild<WebConnection*>(); }

    /// A request is complete. False when there is one already, or bytes follow it: nobody waits in line here.
    bool begin(qint64 msNow);

    /// Answers it, with what is to go wrong. Without `withBody` only the header is sent; without `keepAlive` the
    /// connection ends then.
    void answer(WebAnswer const& answer, std::optional<WebFault> const& fault, bool withBody, bool keepAlive);

    /// Time-outs. The time is that of the server's clock, as everywhere here.
    void check(qint64 msNow);

    /// Ends the connection at once; `why` goes to the log.
    void drop(QString const& why);

    /// Nothing is answered any more, until the client goes or is dropped.
    void silence() { _isSilent = true; }

private:
    void onReadyRead();
    void refuse(int status);
    void send(QByteArray const& header, QByteArray const& body, bool keepAlive);

    QSslSocket* const _socket;
    bool const _isTls;
    qint64 _bytes = 0; ///< Of the request that is coming.
    qint64 _msSince;   ///< Begin of the connection, of the request or of the answer; end of the last answer.
    qint64 _msNow;
    bool _isFirst = true;
    bool _isBusy = false; ///< With a request that is to be answered.
    bool _isEnding = false;
    bool _isSilent = false;

    static Logger* log;
};
