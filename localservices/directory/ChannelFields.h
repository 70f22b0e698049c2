#pragma once

#include <QString>

#include <optional>
#include <span>

/// What is known of a channel besides its id and streams, in one table: the field's name (in the database, on the
/// control port and in SOAP), its element in the channel document, and what it may hold.
struct ChannelField {
    enum class Kind { Text, Truth, Number, Address };

    char const* name;
    char const* element; ///< Null for one that is not in the document.
    char const* initial; ///< What it is when nothing else has been said; nothing is written of an empty one.
    Kind kind = Kind::Text;

    static constexpr qsizetype longest = 2048; ///< Characters.

    static std::span<ChannelField const> all();

    /// The field of that name; null when there is none.
    static ChannelField const* find(QString const& name);

    /// What stands against this text as its content, or nothing.
    QString faultOf(QString const& text) const;
};
