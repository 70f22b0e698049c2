#pragma once

#include "Account.h"
#include "AttemptLimiter.h"
#include "DelayedCalls.h"

#include <QObject>
#include <QThreadPool>

#include <functional>

class Accounts;
class TimerFactory;

/// Lets viewers sign in and sign up. Passwords are hashed on a thread of its own; all else is on the one that made
/// it, where the answers arrive.
///
/// What does not succeed is answered a second later, in the same words and after the same work whether the address or
/// the password is wrong; after ten in a minute, with new accounts counted too, a client's address is turned away.
class Doorkeeper : public QObject
{
    Q_OBJECT

public:
    static constexpr int msPenalty = 1000;
    static constexpr int maximumWaiting = 100; ///< Passwords to be hashed. Who comes then is told to come later.

    static constexpr char const* wrong = "The e-mail address or the password is wrong.";
    static constexpr char const* tooOften = "Too many attempts. Please try again in a minute.";
    static constexpr char const* busy = "The service is busy. Please try again later.";

    /// Null, with the reason in words, when it has not been let in.
    using SignedIn = std::function<void(Account const& account, QString const& reason)>;

    /// No reasons: the account is there.
    using SignedUp = std::function<void(QStringList const& reasons)>;

    /// All but the parent are borrowed.
    Doorkeeper(Accounts& accounts, TickCounter& tickCounter, TimerFactory& timerFactory, int iterations,
               QObject* parent = nullptr);
    ~Doorkeeper() override;

    void signIn(QString const& peer, QString const& email, QString const& password, SignedIn const& answer);
    void signUp(QString const& peer, QString const& email, QString const& password, bool isEmailAllowed,
                SignedUp const& answer);

private:
    void work(std::function<void()> const& hash, std::function<void()> const& then);

    Accounts& _accounts;
    int const _iterations;
    AttemptLimiter _limiter;
    DelayedCalls _penalties;
    int _waiting = 0;
    QThreadPool _pool;
};
