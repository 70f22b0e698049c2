#pragma once

#include <QHash>

class Memo;
class TcpMmsClient;
class TcpMmsMessage;

/// The handlers of all types of messages. Filled at the start of the program, only read afterwards: any thread may
/// use it then.
class TcpMmsMessageHandlers
{
public:
    using Factory = Memo* (*)(TcpMmsClient*, TcpMmsMessage*);

    static TcpMmsMessageHandlers& instance();

    /// The factory makes a memo that owns the message.
    void addMessageHandlerFactory(unsigned int type, Factory factory);

    /// Makes the handler of a message and has the client queue it. Becomes the owner of the message.
    void handleMessage(TcpMmsClient* client, TcpMmsMessage* message) const;

private:
    TcpMmsMessageHandlers() = default;

    QHash<unsigned int, Factory> _factories;
};
