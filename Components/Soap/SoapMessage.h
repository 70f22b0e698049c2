#pragma once

#include "SoapValue.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// A call of a remote method (SOAP 1.1, rpc/literal), as a copyable value: one element METHOD in the namespace
/// "urn:METHOD", whose children without a namespace are the arguments.
class SoapMessage
{
public:
    explicit SoapMessage(QString const& method) : _method(method) {}

    void addArgument(QString const& name, QString const& text) { addArgument(SoapValue(name, text)); }
    void addArgument(SoapValue const& argument) { _arguments.append(argument); }

    QString method() const { return _method; }

    /// The namespace of the method, which is the SOAP action as well.
    QString action() const { return "urn:" + _method; }

    /// The envelope in UTF-8. None when a text has a character that XML has no way to write.
    std::optional<QByteArray> toXml() const;

private:
    QString _method;
    QList<SoapValue> _arguments;
};
