#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>

/// What every message says of its sender. A copyable value; derived classes add what the message is about.
class BiscottiMessage
{
public:
    BiscottiMessage() = default;
    BiscottiMessage(BiscottiMessage const&) = default;
    BiscottiMessage(BiscottiMessage&&) = default;
    BiscottiMessage& operator=(BiscottiMessage const&) = default;
    BiscottiMessage& operator=(BiscottiMessage&&) = default;
    virtual ~BiscottiMessage() = default;

    /// All of the message for a log line.
    virtual QString toString() const;

    /// Who sent it: a user's name, or the id of a client.
    QString senderId() const { return _senderId; }
    void setSenderId(QString const& senderId) { _senderId = senderId; }

    /// The sender's name as shown to people; may be empty.
    QString senderName() const { return _senderName; }
    void setSenderName(QString const& senderName) { _senderName = senderName; }

    /// The address that answers go to; may be empty.
    QString senderReplyTo() const { return _senderReplyTo; }
    void setSenderReplyTo(QString const& senderReplyTo) { _senderReplyTo = senderReplyTo; }

    /// The time of sending in UTC; null when not set.
    QDateTime sendUtc() const { return _sendUtc; }
    void setSendUtc(QDateTime const& sendUtc) { _sendUtc = sendUtc; }

private:
    QString _senderId;
    QString _senderName;
    QString _senderReplyTo;
    QDateTime _sendUtc;
};

Q_DECLARE_METATYPE(BiscottiMessage)
inline int const biscottiMessageMetaType = qRegisterMetaType<BiscottiMessage>("BiscottiMessage");
