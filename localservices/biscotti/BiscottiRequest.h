#pragma once

#include "BiscottiPost.h"
#include "BiscottiSubscription.h"
#include "BiscottiUnsubscription.h"
#include "CentralisedBiscottiMessageId.h"

#include <QString>

#include <variant>

/// A message of a client as the Biscotti server reads it. A value.
struct BiscottiRequest {
    /// A message that asks for nothing: a heartbeat or an acknowledgement.
    struct Nothing {
    };

    /// A message that breaks the schema, a constraint or a rule of the model.
    struct Malformed {
        QString why;
    };

    /// A message in a signed envelope. There are no keys to verify it by.
    struct Signed {
    };

    using Body = std::variant<Nothing, BiscottiSubscription, BiscottiUnsubscription, BiscottiPost, Malformed, Signed>;

    CentralisedBiscottiMessageId id; ///< Null if it could not be read.
    Body body;

    /// Whether the client waits for an acknowledgement.
    bool wantsAck() const { return !std::holds_alternative<Nothing>(body); }
};
