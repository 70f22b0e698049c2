#pragma once

#include "BiscottiMessage.h"

#include <QMetaType>
#include <QString>

/// A sign of life from one side of the link to the other; it says nothing else.
class CentralisedBiscottiHeartbeat : public BiscottiMessage
{
public:
    QString toString() const override;
};

Q_DECLARE_METATYPE(CentralisedBiscottiHeartbeat)
inline int const centralisedBiscottiHeartbeatMetaType =
    qRegisterMetaType<CentralisedBiscottiHeartbeat>("CentralisedBiscottiHeartbeat");
