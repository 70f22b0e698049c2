#include "TerminationSignals.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{

/// All that a signal handler can get at.
std::atomic<int> pipeToWrite = -1;

void handleSignal(int signal)
{
    std::signal(signal, SIG_DFL);
    char const byte = 0;
    [[maybe_unused]] ssize_t const written = ::write(pipeToWrite, &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> const& call)
{
    if (::pipe2(_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return; // The signals end the process, as they always do.
    pipeToWrite = _pipe[1];
    _notifier = std::make_unique<QSocketNotifier>(_pipe[0], QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, _notifier.get(), [this, call] {
        _notifier->setEnabled(false);
        call();
    });
    std::signal(SIGINT, handleSignal);
    std::signal(SIGTERM, handleSignal);
}

TerminationSignals::~TerminationSignals()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    _notifier.reset();
    pipeToWrite = -1;
    for (int const end : _pipe) {
        if (end >= 0)
            ::close(end);
    }
}
