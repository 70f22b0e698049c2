#pragma once

#include "BiscottiId.h"

#include <QMetaType>

/// Names the key that a message is signed with; null for a message without a signature.
class BiscottiSignatureId : public BiscottiId<BiscottiSignatureId>
{
public:
    using BiscottiId::BiscottiId;
};

Q_DECLARE_METATYPE(BiscottiSignatureId)
inline int const biscottiSignatureIdMetaType = qRegisterMetaType<BiscottiSignatureId>("BiscottiSignatureId");
