#pragma once

#include "UserVariables.h"

#include <QMetaType>
#include <QString>

/// A set of users that the service treats alike, as a copyable value.
class OmbravisionUserGroup
{
public:
    /// The null one.
    OmbravisionUserGroup() = default;
    OmbravisionUserGroup(int id, QString const& name, QString const& description, QString const& abbr,
                         QString const& variables)
        : _id(id), _name(name), _description(description), _abbr(abbr), _variables(variables)
    {
    }

    bool isNull() const { return _id == 0 && _name.isEmpty(); }
    int id() const { return _id; }
    QString name() const { return _name; }
    QString description() const { return _description; }
    QString abbr() const { return _abbr; }
    QString variables() const { return _variables; }

    /// The value of a variable; a null string if the service gives none.
    QString valueForVariable(QString const& variable) const { return UserVariables::value(_variables, variable); }

    bool operator==(OmbravisionUserGroup const& other) const = default;

private:
    int _id = 0;
    QString _name;
    QString _description;
    QString _abbr;
    QString _variables;
};

Q_DECLARE_METATYPE(OmbravisionUserGroup)
