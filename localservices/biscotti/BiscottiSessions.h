#pragma once

#include "BiscottiSession.h"

#include <QHash>

#include <memory>
#include <set>
#include <utility>

/// The sessions of all clients that have an identity, with a link or without. Those without one are forgotten after
/// BiscottiLimits::msAbsent, or earlier when there are too many.
class BiscottiSessions
{
public:
    /// The session of a client that is there now; a new one if it is not known.
    std::shared_ptr<BiscottiSession> enter(QString const& identity);

    /// The client of this session is there no more.
    void leave(std::shared_ptr<BiscottiSession> const& session, qint64 msNow);

    void forgetOld(qint64 msNow);

    qsizetype count() const { return _sessions.size(); }

private:
    void forgetFirst();

    QHash<QString, std::shared_ptr<BiscottiSession>> _sessions;
    std::set<std::pair<qint64, QString>> _absent; ///< Identities behind the time of leaving.
};
