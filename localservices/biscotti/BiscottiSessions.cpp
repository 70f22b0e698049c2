#include "BiscottiSessions.h"

std::shared_ptr<BiscottiSession> BiscottiSessions::enter(QString const& identity)
{
    std::shared_ptr<BiscottiSession>& session = _sessions[identity];
    if (session)
        _absent.erase({session->msLeft, identity});
    else
        session = std::make_shared<BiscottiSession>(identity);
    return session;
}

void BiscottiSessions::leave(std::shared_ptr<BiscottiSession> const& session, qint64 msNow)
{
    session->msLeft = msNow;
    _absent.emplace(msNow, session->identity());
    if (std::ssize(_absent) > BiscottiLimits::absentClients)
        forgetFirst();
}

void BiscottiSessions::forgetOld(qint64 msNow)
{
    while (!_absent.empty() && msNow - _absent.begin()->first > BiscottiLimits::msAbsent)
        forgetFirst();
}

void BiscottiSessions::forgetFirst()
{
    _sessions.remove(_absent.begin()->second);
    _absent.erase(_absent.begin());
}
