#pragma once

#include "UriScheme.h"

#include <QMetaType>
#include <QString>

/// The address of a resource: a scheme, a colon and the rest (RFC 3986), as a copyable value.
class Uri
{
public:
    /// The null address.
    Uri() = default;

    /// Takes the text apart, white space around it removed.
    /// Throws std::invalid_argument for text that does not begin with a scheme.
    explicit Uri(QString const& text);

    static Uri Null() { return {}; }

    bool isNull() const { return _scheme.isNull(); }
    UriScheme scheme() const { return _scheme; }

    /// The whole address; "Uri::Null" for the null one.
    QString toString() const;

    /// The whole address, percent-encoded for use inside another one.
    QString toPercentEncodedString() const;

    /// The address without its last path element, query and fragment. An address without a path is its own base.
    QString base() const;

    /// An address as it was typed, without the user and the password in it (RFC 3986, "userinfo"), to be shown or
    /// used as a name. Text that is no address comes back unchanged.
    static QString withoutUserInfo(QString const& address);

    size_t hashCode() const;

    bool operator==(Uri const& other) const = default;

private:
    UriScheme _scheme;
    QString _rest; ///< What follows the colon.
};

inline size_t qHash(Uri const& uri, size_t seed = 0)
{
    return uri.hashCode() ^ seed;
}

Q_DECLARE_METATYPE(Uri)
