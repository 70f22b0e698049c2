#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

/// The interface at "/client/api" as data: its methods and the types that they return. The texts of all arguments are
/// simple, and all values are texts; a truth is "true" or "false".
namespace ApiDescription
{

struct Method {
    QString name;
    QStringList arguments;
    QString returns; ///< A type; empty for a text.
};

/// A structure with fields (their types empty for texts), or a list of items of one type.
struct Type {
    QString name;
    QList<std::pair<QString, QString>> fields;
    bool isList = false;
};

QList<Method> const& methods();
QList<Type> const& types();

/// The fields of a viewer's channel, by name.
QStringList const& streamFields();

/// The same in the Web Services Description Language 1.1, for an interface at this address.
QByteArray wsdl(QString const& address);

} // namespace ApiDescription
