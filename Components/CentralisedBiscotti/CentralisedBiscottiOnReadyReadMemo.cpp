#include "CentralisedBiscottiOnReadyReadMemo.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TcpSocket.h"

Logger* CentralisedBiscottiOnReadyReadMemo::log = LoggerManager::logger();

void CentralisedBiscottiOnReadyReadMemo::handle()
{
    _session.link().noteReceive();
    if (readGreeting())
        readMessages();
}

/// Whether both sides have greeted.
bool CentralisedBiscottiOnReadyReadMemo::readGreeting()
{
    CentralisedBiscottiLink& link = _session.link();
    switch (link.readGreeting()) {
    case CentralisedBiscottiLink::Greeting::Awaited:
        return false;
    case CentralisedBiscottiLink::Greeting::Refused:
        link.socket()->readAll(); // A refused server fills no memory.
        return false;
    case CentralisedBiscottiLink::Greeting::Accepted:
        break;
    }
    if (_session.state() != Biscotti::Connected) {
        LOG_INFO("Link to Biscotti established (%s:%d).", qUtf8Printable(link.host()), link.port());
        _session.setState(Biscotti::Connected);
        _session.postDoPending();
    }
    return true;
}

void CentralisedBiscottiOnReadyReadMemo::readMessages()
{
    LOG_DEBUG("Reading message bytes...");
    while (_session.link().socket()->bytesAvailable() > 0) {
        if (_session.arrivals() >= CentralisedBiscottiSession::maximumArrivals) {
            _session.post(new CentralisedBiscottiOnReadyReadMemo(_session));
            return;
        }
        QByteArray const bytes = _session.link().readMessageBytes();
        if (bytes.isEmpty()) {
            _session.link().disconnectFromHost();
            return;
        }
        if (!decode(bytes))
            return;
    }
}

/// False if the server is out of step, and left.
bool CentralisedBiscottiOnReadyReadMemo::decode(QByteArray const& bytes)
{
    CentralisedBiscottiMessageDecoder& decoder = _session.decoder();
    int const arrivals = _session.arrivals();
    if (!decoder.isInMessage())
        _session.link().noteMessage();
    decoder.appendBytes(bytes);
    if (_session.arrivals() != arrivals)
        _session.link().noteMessage();
    if (decoder.isOutOfStep())
        _session.link().leaveOutOfStep();
    return !decoder.isOutOfStep();
}
