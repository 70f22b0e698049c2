#include "BiscottiBroker.h"

#include "BiscottiLimits.h"
#include "BiscottiSession.h"

#include <algorithm>

namespace
{

using AckCode = BiscottiBroker::AckCode;
using Decision = BiscottiBroker::Decision;

bool isGood(Decision const& decision)
{
    return decision.code == AckCode::Ok;
}

Decision malformed(QString const& why)
{
    return {AckCode::Malformed, why};
}

Decision refused(QString const& why)
{
    return {AckCode::Refused, why};
}

Decision checkId(QString const& id, char const* name)
{
    if (id.isEmpty())
        return malformed(QStringLiteral("it has no %1 id").arg(QLatin1String(name)));
    if (id.size() > BiscottiLimits::id)
        return malformed(QStringLiteral("its %1 id has %2 characters").arg(QLatin1String(name)).arg(id.size()));
    return {};
}

Decision checkSender(BiscottiMessage const& message)
{
    for (QString const& text : {message.senderId(), message.senderName(), message.senderReplyTo()}) {
        if (text.size() > BiscottiLimits::sender)
            return refused(QStringLiteral("its sender has %1 characters").arg(text.size()));
    }
    return {};
}

} // namespace

Decision BiscottiBroker::handle(Client client, BiscottiSession& session, BiscottiRequest const& request,
                                QSet<Client>& recipients)
{
    if (AckCode const failure = _rules.takeFailure(); failure != AckCode::Ok)
        return {failure, QStringLiteral("as asked for")};
    if (auto const* const broken = std::get_if<BiscottiRequest::Malformed>(&request.body))
        return malformed(broken->why);
    if (Decision const id = checkId(request.id.toString(), "message"); !isGood(id))
        return id;
    if (BiscottiSession::identityOf(request.id) != session.identity())
        return refused(QStringLiteral("its id is not of the client's own"));
    if (std::holds_alternative<BiscottiRequest::Signed>(request.body))
        return {AckCode::SignatureNotVerified, QStringLiteral("it is signed")};
    if (session.knows(request.id))
        return {AckCode::MessageIdExists, QStringLiteral("it has come before")};

    auto const* const newPost = std::get_if<BiscottiPost>(&request.body);
    Decision decision;
    if (newPost)
        decision = post(*newPost, recipients);
    else if (auto const* const subscription = std::get_if<BiscottiSubscription>(&request.body))
        decision = subscribe(client, session, *subscription);
    else if (auto const* const unsubscription = std::get_if<BiscottiUnsubscription>(&request.body))
        decision = unsubscribe(client, session, *unsubscription);
    if (isGood(decision))
        newPost ? session.rememberPost(request.id) : session.rememberOther(request.id);
    return decision;
}

Decision BiscottiBroker::subscribe(Client client, BiscottiSession& session, BiscottiSubscription const& subscription)
{
    if (Decision const id = checkId(subscription.subscriptionId().toString(), "subscription"); !isGood(id))
        return id;
    if (!subscription.hasFact() && !subscription.hasInterest())
        return malformed(QStringLiteral("it subscribes to no topic"));
    BiscottiTopic const topic =
        subscription.hasFact() ? subscription.fact() : BiscottiTopic(subscription.interest().toString());
    if (Decision const about = checkTopic(topic); !isGood(about))
        return about;
    if (_router.contains(client, subscription.subscriptionId()) || session.isTaken(subscription))
        return {AckCode::SubscriptionIdExists, subscription.subscriptionId().toString()};
    if (_router.count(client) >= BiscottiLimits::subscriptionsOfClient)
        return refused(QStringLiteral("it has %1 subscriptions").arg(BiscottiLimits::subscriptionsOfClient));
    if (_router.count() >= BiscottiLimits::subscriptions)
        return {AckCode::TemporaryServerError, QStringLiteral("there are %1 subscriptions").arg(_router.count())};
    _router.add(client, subscription);
    session.rememberSubscription(subscription);
    return {};
}

Decision BiscottiBroker::unsubscribe(Client client, BiscottiSession& session,
                                     BiscottiUnsubscription const& unsubscription)
{
    BiscottiSubscriptionId const id = unsubscription.subscriptionId();
    if (!_router.contains(client, id))
        return {AckCode::SubscriptionNotFound, id.toString()};
    _router.remove(client, id);
    session.forgetSubscription(id);
    return {};
}

Decision BiscottiBroker::post(BiscottiPost const& post, QSet<Client>& recipients) const
{
    if (Decision const id = checkId(post.postId().toString(), "post"); !isGood(id))
        return id;
    QList<BiscottiTopic> const topics = post.topics();
    if (std::all_of(topics.begin(), topics.end(), [](BiscottiTopic const& topic) { return topic.isNull(); }))
        return malformed(QStringLiteral("it is about no topic"));
    if (topics.size() > BiscottiLimits::topicsOfPost)
        return refused(QStringLiteral("it has %1 topics").arg(topics.size()));
    for (BiscottiTopic const& topic : topics) {
        if (Decision const about = checkTopic(topic); !isGood(about))
            return about;
    }
    if (Decision const sender = checkSender(post); !isGood(sender))
        return sender;
    if (Decision const audience =
            checkTopic(BiscottiTopic(post.hasAudience() ? post.audience().toString() : QString()));
        !isGood(audience))
        return audience;
    if (post.body().size() > BiscottiLimits::body)
        return {AckCode::BodyTooLarge, QStringLiteral("its body has %1 bytes").arg(post.body().size())};
    recipients = _router.recipients(post);
    return {};
}

Decision BiscottiBroker::checkTopic(BiscottiTopic const& topic) const
{
    if (topic.isNull())
        return {};
    QString const text = topic.toString();
    if (text.size() > BiscottiLimits::topicCharacters ||
        text.count(BiscottiTopic::Delimiter()) > BiscottiLimits::topicLevels)
        return refused(QStringLiteral("one of its topics has %1 characters").arg(text.size()));
    if (BiscottiRules::isWithin(_rules.sealed, topic))
        return {AckCode::SignatureRequired, text};
    if (BiscottiRules::isWithin(_rules.refused, topic))
        return refused(text);
    return {};
}
