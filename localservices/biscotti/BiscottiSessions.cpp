#include "BiscottiSessions.h"

std::shared_ptr<BiscottiSession> BiscottiSessions::enter(QString const& identity)
{
    std::shared_ptr<BiscottiSession>& session = _sessions[identity];
    if (session)
        _absent.remove(session->msLeft, identity);
    else
        session = std::make_shared<BiscottiSession>(identity);
    return session;
}

void BiscottiSessions::leave(std::shared_ptr<BiscottiSession> const& session, qint64 msNow)
{
    session->msLeft = msNow;
    _absent.insert(msNow, session->identity());
    if (_absent.size() > BiscottiLimits::absentClients)
        forgetFirst();
}

void BiscottiSessions::forgetOld(qint64 msNow)
{
    while (!_absent.isEmpty() && msNow - _absent.firstKey() > BiscottiLimits::msAbsent)
        forgetFirst();
}

void BiscottiSessions::forgetFirst()
{
    _sessions.remove(_absent.first());
    _absent.erase(_absent.begin());
}
