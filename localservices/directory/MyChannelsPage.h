#pragma once

#include "Account.h"
#include "WebRequest.h"

#include <QHash>

#include <functional>

class Accounts;
class Directory;
class Doorkeeper;
class TickCounter;

/// The page where viewers get partners' channels back that they have deleted from theirs: one signs in, and sees them
/// with a button for each. Who has signed in carries a number, good for some minutes, in the forms of the page; there
/// are no cookies, so that no other page can press a button. Lives on one thread.
class MyChannelsPage
{
public:
    using Reply = std::function<void(WebAnswer const& answer)>;

    static constexpr char const* path = "/account/streams/login";
    static constexpr qint64 msOfSession = 600'000;
    static constexpr int maximumSessions = 1000; ///< With more, all have to sign in again.

    /// All are borrowed.
    MyChannelsPage(Accounts& accounts, Directory& directory, Doorkeeper& doorkeeper, TickCounter& tickCounter)
        : _accounts(accounts), _directory(directory), _doorkeeper(doorkeeper), _tickCounter(tickCounter)
    {
    }

    void handle(WebRequest const& request, Reply const& reply);

private:
    struct Session {
        Account account;
        qint64 msBegin = 0;
    };

    QString begin(Account const& account);
    bool isValid(Session const& session) const;
    WebAnswer signInForm(QString const& error) const;
    WebAnswer list(QString const& session, QString const& note) const;

    Accounts& _accounts;
    Directory& _directory;
    Doorkeeper& _doorkeeper;
    TickCounter& _tickCounter;
    QHash<QString, Session> _sessions;
};
