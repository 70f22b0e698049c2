#pragma once

#include <QByteArray>
#include <QString>

/// Names of local files between the system, to which they are bytes, and Qt, to which they are characters.
///
/// Such a name is a path or a "file" address (RFC 8089). A path whose bytes are no UTF-8 has no characters; it is
/// written as an address with those bytes percent-encoded, which goes through every text unharmed. Any thread.
class FileName
{
public:
    /// An argument of the command line as it was given. One that is no UTF-8 becomes an address: of a file, made
    /// absolute, or the one that it is, with the bytes that are no ASCII percent-encoded. A switch stays one.
    static QString fromArgument(char const* argument);

    /// A path's characters, or its address when it has none.
    static QString fromLocal8Bit(QByteArray const& path);

    /// Whether the text begins with "file://".
    static bool isAddress(QString const& text);

    /// The path that the address of a file on this machine means, or its address when it has no characters. Every
    /// other name comes back unchanged.
    static QString fromAddress(QString const& name);

    /// The bytes that the system knows the file by; empty for an address that is not of this machine.
    static QByteArray toLocal8Bit(QString const& name);

    /// The whole address, percent-encoded, of a name, made absolute if need be.
    static QString toAddress(QString const& name);

    /// The last element of a name, for people to read.
    static QString title(QString const& name);
};
