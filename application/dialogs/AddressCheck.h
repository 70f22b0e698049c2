#pragma once

#include <QCoreApplication>
#include <QString>

/// Whether a text is an address that may be played, and what is wrong with one that isn't, in words. A value. Looks
/// at the text only: not at the disk, and not at the network.
struct AddressCheck {
    Q_DECLARE_TR_FUNCTIONS(AddressCheck)

public:
    enum class Kind { Nothing, Stream, File };

    Kind kind = Kind::Nothing;
    QString words; ///< What is wrong, or what it is. Empty for an empty text.

    bool isUsable() const { return kind != Kind::Nothing; }

    static AddressCheck of(QString const& text);
};
