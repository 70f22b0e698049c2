#include "BiscottiRules.h"

#include <algorithm>

void BiscottiRules::failNext(AckCode code, int count)
{
    _failureCode = code;
    _failures = count;
}

BiscottiRules::AckCode BiscottiRules::takeFailure()
{
    if (_failures == 0)
        return AckCode::Ok;
    --_failures;
    return _failureCode;
}

bool BiscottiRules::isWithin(QList<BiscottiTopic> const& topics, BiscottiTopic const& topic)
{
    return std::any_of(topics.begin(), topics.end(), [&](BiscottiTopic const& one) {
        return one.matches(topic) && one.toString().size() <= topic.toString().size();
    });
}
