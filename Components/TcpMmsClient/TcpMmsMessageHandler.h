#pragma once

#include "AbstractMemo.h"
#include "TcpMmsConversation.h"
#include "TcpMmsMessage.h"

#include <memory>

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

private:
    TcpMmsClient* const _client;
    std::unique_ptr<TcpMmsMessage> const _message;
    bool _live = true;
};

/// The handler of one type of message: does what TcpMmsConversation says.
template<typename Message>
class TcpMmsMessageHandlerOf : public TcpMmsMessageHandler
{
public:
    /// A handler that owns the message, which is of the class Message. Owned by the caller.
    static Memo* create(TcpMmsClient* client, TcpMmsMessage* message)
    {
        return new TcpMmsMessageHandlerOf(client, message);
    }

protected:
    void act() override { TcpMmsConversation::follow(client(), static_cast<Message const&>(message())); }

private:
    TcpMmsMessageHandlerOf(TcpMmsClient* client, TcpMmsMessage* message)
        : TcpMmsMessageHandler(client, std::unique_ptr<TcpMmsMessage>(message))
    {
    }
};
