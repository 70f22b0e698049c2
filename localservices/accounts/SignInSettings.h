#pragma once

#include <QString>
#include <QStringList>

#include <span>

class Database;

/// What every viewer is told who signs in: what the program may do, and an update that is offered to it. Each has a
/// name, which is its key in the reply as well, and is kept in the database.
class SignInSettings
{
public:
    enum class Kind { Text, Truth, Number };

    struct Setting {
        char const* name;
        char const* initial;
        Kind kind;
    };

    static constexpr qsizetype longest = 2048; ///< Characters.

    explicit SignInSettings(Database& database) : _database(database) {}

    static std::span<Setting const> all();

    /// The content of one of them.
    QString value(QString const& name) const;

    /// Answers what stands against this, or nothing.
    QString set(QString const& name, QString const& content);

private:
    Database& _database;
};
