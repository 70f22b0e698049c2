#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

/// Turns SIGINT and SIGTERM into a call on the thread that made this, once its event loop comes round. The second of
/// them ends the process at once. One at a time.
class TerminationSignals
{
public:
    explicit TerminationSignals(std::function<void()> const& call);
    ~TerminationSignals();
    TerminationSignals(TerminationSignals const&) = delete;
    TerminationSignals& operator=(TerminationSignals const&) = delete;

private:
    int _pipe[2] = {-1, -1};
    std::unique_ptr<QSocketNotifier> _notifier;
};
