#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <optional>

/// A call of a method over SOAP 1.1, rpc/literal (WS-I Basic Profile 1.1): one element in the body, named after the
/// method, in the namespace "urn:" and its name; its children are the arguments, simple texts. A value.
struct ApiCall {
    static constexpr int maximumArguments = 32;
    static constexpr int maximumDepth = 16;
    static constexpr qsizetype longestArgument = 16 << 10; ///< Characters.

    QString method;
    QMap<QString, QString> arguments;

    QString argument(char const* name) const { return arguments.value(QString::fromLatin1(name)); }

    /// Nothing, and a text that tells why, for bytes that are no such call.
    static std::optional<ApiCall> read(QByteArray const& xml, QString& error);
};
