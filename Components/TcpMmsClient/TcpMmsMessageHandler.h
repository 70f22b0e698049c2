#pragma once

#include "AbstractMemo.h"
#include "TcpMmsMessage.h"

#include <memory>

class Logger;
class TcpMmsClient;

/// What is to be done for a TcpMmsClient about one thing that it received or waits for, as a memo of the client's.
/// Acts at most once, and not at all after it was cancelled.
class TcpMmsMessageHandler : public AbstractMemo
{
public:
    /// The client is the memo's owner. The message may be null: not all handlers are about one.
    explicit TcpMmsMessageHandler(TcpMmsClient* client, std::unique_ptr<TcpMmsMessage> message = nullptr);

    void handle() final;
    void cancel() { _live = false; }

protected:
    /// Does the work. The client may be deleted by it.
    virtual void act() = 0;

    TcpMmsClient& client() const { return *_client; }
    TcpMmsMessage const& message() const { return *_message; }

    /// Whether the conversation goes on with a report that answers `request`: it does when that was the last message
    /// sent, else the report is late, and when the result is not negative. A negative one is given to handleError().
    bool isSuccess(TcpMmsMessage::MmsMessageType request, int result) const;

    static Logger* log;

private:
    TcpMmsClient* const _client;
    std::unique_ptr<TcpMmsMessage> const _message;
    bool _live = true;
};

/// What the handler of one type of message has besides its work.
template<typename Handler, typename Message>
class TcpMmsMessageHandlerOf : public TcpMmsMessageHandler
{
public:
    TcpMmsMessageHandlerOf(TcpMmsClient* client, TcpMmsMessage* message)
        : TcpMmsMessageHandler(client, std::unique_ptr<TcpMmsMessage>(message))
    {
    }

    /// A handler that owns the message, which is of the class Message. Owned by the caller.
    static Memo* create(TcpMmsClient* client, TcpMmsMessage* message) { return new Handler(client, message); }

protected:
    Message const& report() const { return static_cast<Message const&>(message()); }
};
