#pragma once

#include <QHash>
#include <QString>

#include <compare>

/// The scheme of an address, such as "rtsp". Lower case; the default-constructed one is null.
class UriScheme
{
public:
    UriScheme() = default;
    explicit UriScheme(QString const& text) : _text(text.toLower()) {}

    bool isNull() const { return _text.isEmpty(); }
    QString toString() const { return _text; }
    size_t hashCode() const { return qHash(_text); }

    bool operator<(UriScheme const& other) const { return _text < other._text; }
    bool operator==(UriScheme const& other) const = default;

private:
    QString _text;
};

inline size_t qHash(UriScheme const& scheme, size_t seed = 0)
{
    return scheme.hashCode() ^ seed;
}
