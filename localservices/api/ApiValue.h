#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

/// What a method returns: a text, a structure of named values, or a list, whose members are all named "item". A
/// value.
class ApiValue
{
public:
    ApiValue() = default;
    ApiValue(QString const& text) : _text(text) {}
    ApiValue(char const* text) : _text(QString::fromUtf8(text)) {}
    ApiValue(bool truth) : _text(truth ? QStringLiteral("true") : QStringLiteral("false")) {}
    ApiValue(int number) : _text(QString::number(number)) {}

    static ApiValue listOf(QStringList const& texts);

    void add(QString const& name, ApiValue const& value) { _members.append({name, value}); }
    void addItem(ApiValue const& value) { add(QStringLiteral("item"), value); }

    QString const& text() const { return _text; }
    QList<std::pair<QString, ApiValue>> const& members() const { return _members; }

    /// The reply of a method that returns this: an envelope in UTF-8. Characters that XML has no way to write are
    /// left out.
    static QByteArray reply(QString const& method, ApiValue const& value);

    /// A fault, with one of the codes of SOAP 1.1, such as "Client".
    static QByteArray fault(QString const& code, QString const& text);

private:
    QString _text;
    QList<std::pair<QString, ApiValue>> _members;
};
