#pragma once

#include <QString>

#include <optional>

/// What the viewer's program signs in with: Base64 (RFC 4648) of a text in UTF-8 of six fields by single blanks, with
/// "-" between the last but one and what it begins with:
///     EMAIL PASSWORD NODE VERSION AUTO-Linux ARCH
/// The first four are percent-encoded (RFC 3986); AUTO is 1 for a sign-in without the viewer, else 0. A value.
struct LogInText {
    static constexpr qsizetype longest = 8 << 10; ///< Characters of Base64.

    QString email;
    QString password;
    QString node; ///< The machine, as this account's.
    QString version;
    bool isAutomatic = false;

    /// Nothing for any other text.
    static std::optional<LogInText> read(QString const& base64);
};
