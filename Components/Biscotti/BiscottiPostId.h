#pragma once

#include "BiscottiId.h"

#include <QMetaType>

/// Names one post.
class BiscottiPostId : public BiscottiId<BiscottiPostId>
{
public:
    using BiscottiId::BiscottiId;
};

Q_DECLARE_METATYPE(BiscottiPostId)
inline int const biscottiPostIdMetaType = qRegisterMetaType<BiscottiPostId>("BiscottiPostId");
