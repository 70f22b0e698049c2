#pragma once

#include <QHashFunctions>
#include <QString>

#include <utility>

/// What the identifiers of messaging have in common: an opaque text as a copyable value that is compared, ordered and
/// hashed by that text. The empty one is null.
///
/// Each identifier is a class of its own, so that one is never taken for another:
///
///     class BiscottiPostId : public BiscottiId<BiscottiPostId> { using BiscottiId::BiscottiId; };
template<typename Id>
class BiscottiId
{
public:
    BiscottiId() = default;
    explicit BiscottiId(QString text) : _text(std::move(text)) {}

    bool isNull() const { return _text.isEmpty(); }
    QString toString() const { return _text; }
    size_t hashCode() const { return qHash(_text); }

    // Found by argument only, and for two of the same class only.
    friend bool operator==(Id const& left, Id const& right) { return left._text == right._text; }
    friend bool operator<(Id const& left, Id const& right) { return left._text < right._text; }
    friend size_t qHash(Id const& id, size_t seed = 0) { return qHash(id._text, seed); }

private:
    QString _text;
};
