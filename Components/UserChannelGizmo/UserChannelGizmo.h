#pragma once

#include "BiscottiSubscriber.h"
#include "BiscottiTopic.h"

#include <QObject>
#include <QString>

class Biscotti;
class Logger;

/// Hears when the channels of a signed-in user are to be loaded anew.
class UserChannelGizmo : public QObject, public BiscottiSubscriber
{
    Q_OBJECT

public:
    static constexpr char const* TriggerTopic = ".ombra.mychannels.trigger.refresh.user";

    /// Subscribes, until it is destroyed. The messaging service is borrowed and must outlive it.
    UserChannelGizmo(Biscotti* biscotti, QString const& userId, QObject* parent = nullptr);
    ~UserChannelGizmo() override;

    BiscottiSubscriberId biscottiSubscriberId() const override { return _subscriberId; }
    void handleBiscottiPost(BiscottiPost const& post) override;

signals:
    /// Emitted on the thread of the service's memo queue.
    void refreshUserChannels();

private:
    static Logger* log;

    Biscotti* const _biscotti;
    BiscottiTopic const _topic;
    BiscottiSubscriberId const _subscriberId;
};
