#pragma once

#include "AbstractMemo.h"

#include <future>

class CentralisedBiscottiSession;

/// The end: sends the posts that are left and gives the socket back, on the socket's thread. Belongs to the session,
/// since the client has given up its right to post.
class CentralisedBiscottiShutdownMemo : public AbstractMemo
{
public:
    explicit CentralisedBiscottiShutdownMemo(CentralisedBiscottiSession& session);

    void handle() override;

    /// Ready when the memo has been handled, or has been deleted without.
    std::future<void> done() { return _isDone.get_future(); }

private:
    CentralisedBiscottiSession& _session;
    std::promise<void> _isDone;
};
