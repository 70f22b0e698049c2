#include "UserChannelGizmo.h"

#include "Biscotti.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QUuid>

Logger* UserChannelGizmo::log = LoggerManager::logger();

UserChannelGizmo::UserChannelGizmo(Biscotti* biscotti, QString const& userId, QObject* parent)
    : QObject(parent), _biscotti(biscotti), _topic(BiscottiTopic(TriggerTopic).append(userId)),
      _subscriberId("UserChannelGizmo_" + QUuid::createUuid().toString() + "_" + userId)
{
    LOG_DEBUG("UserChannelGizmo constructed.");
    BiscottiSubscription subscription;
    subscription.setInterest(BiscottiTopicExpression(_topic));
    _biscotti->subscribe(&subscription, this, BiscottiSignatureId());
}

UserChannelGizmo::~UserChannelGizmo()
{
    _biscotti->unsubscribeAll(_subscriberId);
}

/// A post above the topic is for all users and for none, and arrives as well.
void UserChannelGizmo::handleBiscottiPost(BiscottiPost const& post)
{
    bool const hasUser = _topic != BiscottiTopic(TriggerTopic);
    if (hasUser && post.topics().contains(_topic))
        emit refreshUserChannels();
}
