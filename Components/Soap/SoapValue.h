#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

/// A value in a SOAP message, as a copyable value: a text, or members with names. The members of a list share one
/// name.
///
/// The null value is not valid: it stands for what a message does not have.
class SoapValue
{
public:
    SoapValue() = default;
    SoapValue(QString const& name, QString const& text) : _isValid(true), _name(name), _text(text) {}
    SoapValue(QString const& name, QList<SoapValue> const& members) : _isValid(true), _name(name), _members(members)
    {
    }

    bool isValid() const { return _isValid; }

    /// The local name of the element.
    QString name() const { return _name; }

    /// The text as it was sent, white space included; empty for a value with members.
    QString toString() const { return _text; }

    /// The text as a number, or the other number if it is none.
    int toInt(int otherwise = 0) const;

    /// Whether the text is "true" or "1"; the other answer when there is no value.
    bool toBool(bool otherwise = false) const;

    QList<SoapValue> members() const { return _members; }

    /// The first member of that name, or the null value.
    SoapValue member(QString const& name) const;

    /// The texts of the members, in order.
    QStringList texts() const;

private:
    bool _isValid = false;
    QString _name;
    QString _text;
    QList<SoapValue> _members;
};

Q_DECLARE_METATYPE(SoapValue)
