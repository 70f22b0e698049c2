#include "CentralisedBiscottiHeartbeat.h"

QString CentralisedBiscottiHeartbeat::toString() const
{
    return u"[HEARTBEAT] " + BiscottiMessage::toString();
}
