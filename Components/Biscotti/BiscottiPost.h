#pragma once

#include "BiscottiMessage.h"
#include "BiscottiPostId.h"
#include "BiscottiTopic.h"
#include "BiscottiTopicExpression.h"

#include <QByteArray>
#include <QList>
#include <QMetaType>
#include <QString>

/// A message to all who hear its topics.
class BiscottiPost : public BiscottiMessage
{
public:
    BiscottiPostId postId() const { return _postId; }
    void setPostId(BiscottiPostId const& postId) { _postId = postId; }

    /// All topics, in order.
    QList<BiscottiTopic> topics() const { return _topics; }
    void setTopics(QList<BiscottiTopic> const& topics) { _topics = topics; }

    /// The first topic; null if there is none.
    BiscottiTopic topic() const { return _topics.value(0); }

    /// Makes the topic the only one.
    void setTopic(BiscottiTopic const& topic) { _topics = {topic}; }

    /// Whom the post is meant for; empty if for everyone.
    BiscottiTopicExpression audience() const { return _audience; }
    void setAudience(BiscottiTopicExpression const& audience) { _audience = audience; }
    bool hasAudience() const { return !_audience.isEmpty(); }

    /// The content, in a format of the sender's and the receiver's own.
    QByteArray body() const { return _body; }
    void setBody(QByteArray const& body) { _body = body; }

    /// The post without its body, for a log line.
    QString toShortString() const;

    /// The post with its body as text.
    QString toString() const override;

private:
    BiscottiPostId _postId;
    QList<BiscottiTopic> _topics;
    BiscottiTopicExpression _audience;
    QByteArray _body;
};

Q_DECLARE_METATYPE(BiscottiPost)
inline int const biscottiPostMetaType = qRegisterMetaType<BiscottiPost>("BiscottiPost");
