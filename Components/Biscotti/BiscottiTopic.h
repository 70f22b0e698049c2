#pragma once

#include <QHashFunctions>
#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QStringView>

/// A place in the hierarchy of topics that posts go to and subscriptions hear from, as a copyable value.
///
/// Held in normal form: levels of a-z, 0-9, "-" and "_", each after a delimiter, as in ".chat.news_fr"; the root is
/// the delimiter alone, the null topic is empty. Every operation is linear in the text, whatever the number of
/// levels.
class BiscottiTopic
{
public:
    /// The null topic.
    BiscottiTopic() = default;

    /// The topic of any text, which is normalised; null if nothing of it is left.
    explicit BiscottiTopic(QString const& text) : _text(normalise(text)) {}

    static BiscottiTopic Null() { return {}; }
    static BiscottiTopic Root() { return BiscottiTopic(QString(Delimiter())); }
    static constexpr QChar Delimiter() { return u'.'; }

    bool isNull() const { return _text.isEmpty(); }
    bool isRoot() const { return _text.size() == 1; }

    /// The normal form; "<NULL>" for the null topic.
    QString toString() const { return isNull() ? QStringLiteral("<NULL>") : _text; }

    /// The names of the levels from the root down; empty for the root and the null topic.
    QStringList split() const;

    /// The name of the lowest level; a null string for the root and the null topic.
    QString last() const;

    /// The topic below this one; the text may hold several levels. Below the null topic is what is below the root.
    BiscottiTopic append(QString const& text) const;

    /// Whether one of the two is the other, or above it. The null topic matches nothing. Allocates nothing.
    bool matches(BiscottiTopic const& other) const;

    /// The normal form of a text: lower case, without all that has no place in a topic, runs of delimiters as one,
    /// one delimiter before and none after.
    static QString normalise(QString const& text);

    size_t hashCode() const { return qHash(_text); }
    bool operator==(BiscottiTopic const& other) const = default;
    bool operator<(BiscottiTopic const& other) const { return _text < other._text; }
    friend size_t qHash(BiscottiTopic const& topic, size_t seed = 0) { return qHash(topic._text, seed); }

private:
    static bool isNormal(QStringView text);

    QString _text;
};

Q_DECLARE_METATYPE(BiscottiTopic)
inline int const biscottiTopicMetaType = qRegisterMetaType<BiscottiTopic>("BiscottiTopic");
