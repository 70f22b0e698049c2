#include "Doorkeeper.h"

#include "Accounts.h"
#include "PasswordHash.h"

#include <QStringList>

#include <memory>

Doorkeeper::Doorkeeper(Accounts& accounts, TickCounter& tickCounter, TimerFactory& timerFactory, int iterations,
                       QObject* parent)
    : QObject(parent), _accounts(accounts), _iterations(iterations), _limiter(tickCounter), _penalties(timerFactory)
{
    _pool.setMaxThreadCount(1);
}

Doorkeeper::~Doorkeeper()
{
    _pool.clear();
    _pool.waitForDone();
}

void Doorkeeper::signIn(QString const& peer, QString const& email, QString const& password, SignedIn const& answer)
{
    if (!_limiter.isAllowed(peer))
        return _penalties.add(msPenalty, [answer] { answer({}, QString::fromLatin1(tooOften)); });
    if (_waiting >= maximumWaiting)
        return answer({}, QString::fromLatin1(busy));
    Account const account = _accounts.find(email);
    PasswordHash known = _accounts.password(account.id);
    if (known.hash.isEmpty())
        known.iterations = _iterations; // An address that nobody has takes as long.
    auto const matches = std::make_shared<bool>(false);
    _limiter.count(peer); // Before the answer is known: else many at once would pass together.
    work([=] { *matches = known.matches(password) && !known.hash.isEmpty(); },
         [this, answer, account, matches, peer] {
             if (!*matches)
                 return _penalties.add(msPenalty, [answer] { answer({}, QString::fromLatin1(wrong)); });
             _limiter.forgive(peer);
             answer(account, {});
         });
}

void Doorkeeper::signUp(QString const& peer, QString const& email, QString const& password, bool isEmailAllowed,
                        SignedUp const& answer)
{
    if (!_limiter.isAllowed(peer))
        return _penalties.add(msPenalty, [answer] { answer({QString::fromLatin1(tooOften)}); });
    if (_waiting >= maximumWaiting)
        return answer({QString::fromLatin1(busy)});
    if (QStringList const faults = Accounts::faultsOf(email, password); !faults.isEmpty())
        return answer(faults);
    _limiter.count(peer);
    auto const hash = std::make_shared<PasswordHash>();
    work([hash, password, iterations = _iterations] { *hash = PasswordHash::make(password, iterations); },
         [=, this] {
             QString error;
             _accounts.add(email, *hash, isEmailAllowed, error);
             answer(error.isEmpty() ? QStringList() : QStringList(error));
         });
}

/// `hash` on the other thread, `then` back here.
void Doorkeeper::work(std::function<void()> const& hash, std::function<void()> const& then)
{
    ++_waiting;
    _pool.start([this, hash, then] {
        hash();
        QMetaObject::invokeMethod(
            this,
            [this, then] {
                --_waiting;
                then();
            },
            Qt::QueuedConnection);
    });
}
