#pragma once

#include "BiscottiTopic.h"
#include "CentralisedBiscottiAck.h"

#include <QList>

/// What the Biscotti server is told while it runs: what it refuses, and what it is to do wrong.
class BiscottiRules
{
public:
    using AckCode = CentralisedBiscottiAck::AckCode;

    static constexpr qint64 defaultMaxDataWaitMs = 120'000; ///< As clients have it that are not told.
    static constexpr int maximumFailures = 1'000'000;

    /// Forgets all of it.
    void clear() { *this = BiscottiRules(); }

    /// The next `count` messages that want an acknowledgement are not looked at, and get this one.
    void failNext(AckCode code, int count);

    /// The code for the message that has come now; Ok when it is to be handled as usual.
    AckCode takeFailure();
    int failures() const { return _failures; }
    AckCode failureCode() const { return _failureCode; }

    /// Whether a topic is one of these or below.
    static bool isWithin(QList<BiscottiTopic> const& topics, BiscottiTopic const& topic);

    QList<BiscottiTopic> refused;                ///< Nothing is subscribed or posted to these, or below.
    QList<BiscottiTopic> sealed;                 ///< The same without a signature, which nobody can give yet.
    qint64 maxDataWaitMs = defaultMaxDataWaitMs; ///< What new clients are told.
    bool isSilent = false; ///< Takes clients and bytes, and answers nothing, not even with a greeting.

private:
    AckCode _failureCode = AckCode::InternalServerError;
    int _failures = 0;
};
