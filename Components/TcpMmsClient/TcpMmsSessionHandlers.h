#pragma once

#include "MmsData.h"
#include "TcpMmsClient.h"
#include "TcpMmsMessageHandler.h"

// The handlers that are about no message.

/// Gives a data packet to its client.
class MmsDataReceivedHandler : public TcpMmsMessageHandler
{
public:
    MmsDataReceivedHandler(TcpMmsClient* client, MmsData data) : TcpMmsMessageHandler(client), _data(std::move(data))
    {
    }

protected:
    void act() override { client().handleData(_data.locationId, _data.flags, _data.payload); }

private:
    MmsData const _data;
};

/// Calls one operation of the client.
template<void (TcpMmsClient::*work)()>
class MmsWorkHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsWorkHandler(TcpMmsClient* client) : TcpMmsMessageHandler(client) {}

protected:
    void act() override { (client().*work)(); }
};

using MmsDisconnectHandler = MmsWorkHandler<&TcpMmsClient::disconnectFromServer>;
/// Comes when all memos of the bytes that were read last have been handled.
using MmsSliceHandler = MmsWorkHandler<&TcpMmsClient::sliceHandled>;

/// Ends the session after all that was received before has been handled.
class MmsSessionEndHandler : public TcpMmsMessageHandler
{
public:
    MmsSessionEndHandler(TcpMmsClient* client, MmsClient::MmsClientState state, MmsClient::MmsClientError error)
        : TcpMmsMessageHandler(client), _state(state), _error(error)
    {
    }

protected:
    void act() override { client().endSession(_state, _error); }

private:
    MmsClient::MmsClientState const _state;
    MmsClient::MmsClientError const _error;
};

/// The limit on the server's answer: when it comes due and the conversation stands where it stood when this was made,
/// the session ends.
class MmsTimerHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsTimerHandler(TcpMmsClient* client)
        : TcpMmsMessageHandler(client), _lastMessage(client->lastMessage()), _lastSequence(client->lastSequence()),
          _state(client->state())
    {
    }

protected:
    void act() override
    {
        if (client().lastMessage() == _lastMessage && client().lastSequence() == _lastSequence &&
            client().state() == _state)
            client().handleTimeout();
    }

private:
    quint32 const _lastMessage;
    quint16 const _lastSequence; ///< Tells two messages of one type apart.
    MmsClient::MmsClientState const _state;
};

/// The limit on silence while bytes are to flow: when it comes due where the conversation stood when it was made and
/// nothing has arrived since, the session ends; if something has, it begins anew.
class MmsReadTimerHandler : public TcpMmsMessageHandler
{
public:
    explicit MmsReadTimerHandler(TcpMmsClient* client)
        : TcpMmsMessageHandler(client), _totalBytes(client->totalBytesReceived()),
          _lastSequence(client->lastSequence()), _state(client->state())
    {
    }

protected:
    void act() override
    {
        if (client().state() != _state || client().lastSequence() != _lastSequence)
            return; // The answer has a limit of its own, and what flows after it.
        if (client().isReading() && client().totalBytesReceived() == _totalBytes)
            client().handleReadTimeout();
        else
            client().startReadTimer();
    }

private:
    qint64 const _totalBytes;
    quint16 const _lastSequence;
    MmsClient::MmsClientState const _state;
};
