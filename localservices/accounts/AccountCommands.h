#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Accounts;
class MessageBoard;
class SignInSettings;

/// What can be asked of the accounts while the service runs, as the words of a line: "account", "message" and
/// "signin"; help() lists it.
class AccountCommands
{
public:
    /// Tells the programs of an account, or of all with 0, to ask anew.
    using Trigger = std::function<void(qint64 account)>;

    struct Parts {
        Accounts& accounts;
        MessageBoard& messages;
        SignInSettings& settings;
        Trigger trigger;
        int iterations; ///< For the passwords.
    };

    explicit AccountCommands(Parts const& parts) : _parts(parts) {}

    /// Each does what the words behind its name ask for, and adds to the lines of the answer. Answers an error, or
    /// nothing.
    QString account(QStringList const& words, QStringList& lines);
    QString message(QStringList const& words, QStringList& lines);
    QString signIn(QStringList const& words, QStringList& lines);

    static QStringList help();

    /// A line of the control port without the password that may be in it.
    static QString withoutSecrets(QString const& line);

private:
    void list(QStringList& lines) const;
    QString addAccount(QStringList const& words);
    QString change(QString const& what, qint64 id, QString const& rest);
    QString define(QString const& what, QString const& rest);

    Parts const _parts;
};
