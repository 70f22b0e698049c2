#include "BiscottiPost.h"

QString BiscottiPost::toShortString() const
{
    QString text = u"[POST] PostId:=" + _postId.toString() + u", ";
    if (!_topics.isEmpty())
        text += u"Topics:=";
    for (BiscottiTopic const& topic : _topics)
        text += topic.toString() + u", ";
    if (hasAudience())
        text += u"Audience:=" + _audience.toString() + u", ";
    return text + BiscottiMessage::toString();
}

QString BiscottiPost::toString() const
{
    return toShortString() + u", Body:=" + (_body.isNull() ? QStringLiteral("<NULL>") : QString::fromUtf8(_body));
}
