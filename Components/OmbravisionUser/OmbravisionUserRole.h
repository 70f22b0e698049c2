#pragma once

#include "UserVariables.h"

#include <QMetaType>
#include <QString>

/// What a user is entitled to be, such as a moderator, as a copyable value.
class OmbravisionUserRole
{
public:
    /// The null one.
    OmbravisionUserRole() = default;
    OmbravisionUserRole(int id, QString const& title, QString const& abbr, QString const& variables)
        : _id(id), _title(title), _abbr(abbr), _variables(variables)
    {
    }

    bool isNull() const { return _id == 0 && _title.isEmpty(); }
    int id() const { return _id; }
    QString title() const { return _title; }
    QString abbr() const { return _abbr; }
    QString variables() const { return _variables; }

    /// The value of a variable; a null string if the service gives none.
    QString valueForVariable(QString const& variable) const { return UserVariables::value(_variables, variable); }

    bool operator==(OmbravisionUserRole const& other) const = default;

private:
    int _id = 0;
    QString _title;
    QString _abbr;
    QString _variables;
};

Q_DECLARE_METATYPE(OmbravisionUserRole)
