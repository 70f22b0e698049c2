#include "BiscottiTopicExpression.h"

#include <algorithm>
#include <stdexcept>

namespace
{

[[noreturn]] void refuseBoolean()
{
    throw std::logic_error("ERROR: Boolean topic expressions not yet implemented.");
}

QString const& withoutOperators(QString const& text)
{
    auto const isOperator = [](QChar character) {
        return character == u'&' || character == u'|' || character == u'~';
    };
    if (std::any_of(text.begin(), text.end(), isOperator))
        refuseBoolean();
    return text;
}

} // namespace

BiscottiTopicExpression::BiscottiTopicExpression(QString const& text) : _topic(withoutOperators(text)) {}

bool BiscottiTopicExpression::matches(BiscottiTopic const& topic) const
{
    return isEmpty() ? !topic.isNull() : _topic.matches(topic);
}

BiscottiTopicExpression BiscottiTopicExpression::butNot(BiscottiTopicExpression const&) const
{
    refuseBoolean();
}

BiscottiTopicExpression BiscottiTopicExpression::andOr(BiscottiTopicExpression const&) const
{
    refuseBoolean();
}

BiscottiTopicExpression BiscottiTopicExpression::andAlso(BiscottiTopicExpression const&) const
{
    refuseBoolean();
}
