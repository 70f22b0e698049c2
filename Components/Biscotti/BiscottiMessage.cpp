#include "BiscottiMessage.h"

QString BiscottiMessage::toString() const
{
    return u"SenderId:=" + _senderId + u", SenderName:=" + _senderName + u", SenderReplyTo:=" + _senderReplyTo +
           u", SendUtc:=" + _sendUtc.toString();
}
