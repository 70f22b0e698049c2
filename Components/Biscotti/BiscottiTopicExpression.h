#pragma once

#include "BiscottiTopic.h"

#include <QMetaType>
#include <QString>

/// Which topics a subscription or an audience means, as a copyable value. Today an expression is one topic, or empty.
///
/// The characters "&", "|" and "~" are reserved for boolean expressions, which are not there yet: a text that holds
/// one, and the three operators, throw std::logic_error.
class BiscottiTopicExpression
{
public:
    /// The empty expression.
    BiscottiTopicExpression() = default;

    /// The expression of any text, which is normalised like that of a topic; empty if nothing of it is left.
    explicit BiscottiTopicExpression(QString const& text);

    /// The expression that means the topic; empty for the null topic.
    explicit BiscottiTopicExpression(BiscottiTopic const& topic) : _topic(topic) {}

    static BiscottiTopicExpression Empty() { return {}; }

    bool isEmpty() const { return _topic.isNull(); }

    /// The normal form; "<EMPTY>" for the empty expression.
    QString toString() const { return isEmpty() ? QStringLiteral("<EMPTY>") : _topic.toString(); }

    /// Whether the topic is meant: the empty expression means all topics but the null one. Allocates nothing.
    bool matches(BiscottiTopic const& topic) const;

    /// The normal form of a text, empty if nothing of it is left.
    static QString normalise(QString const& text) { return BiscottiTopic::normalise(text); }

    [[noreturn]] BiscottiTopicExpression butNot(BiscottiTopicExpression const& other) const;
    [[noreturn]] BiscottiTopicExpression andOr(BiscottiTopicExpression const& other) const;
    [[noreturn]] BiscottiTopicExpression andAlso(BiscottiTopicExpression const& other) const;

    size_t hashCode() const { return _topic.hashCode(); }
    bool operator==(BiscottiTopicExpression const& other) const = default;
    bool operator<(BiscottiTopicExpression const& other) const { return _topic < other._topic; }
    friend size_t qHash(BiscottiTopicExpression const& expression, size_t seed = 0)
    {
        return qHash(expression._topic, seed);
    }

private:
    BiscottiTopic _topic;
};

Q_DECLARE_METATYPE(BiscottiTopicExpression)
inline int const biscottiTopicExpressionMetaType =
    qRegisterMetaType<BiscottiTopicExpression>("BiscottiTopicExpression");
