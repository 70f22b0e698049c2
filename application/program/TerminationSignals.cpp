#include "TerminationSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace
{

constexpr int handledSignals[] = {SIGTERM, SIGINT, SIGHUP};

// The two ends of a pipe: all that a signal handler may do is write to it.
int pipeEnds[2] = {-1, -1};

extern "C" void writeToPipe(int)
{
    char const byte = 0;
    [[maybe_unused]] ssize_t const written = ::write(pipeEnds[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(QObject* parent) : QObject(parent)
{
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    _notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(_notifier.get(), &QSocketNotifier::activated, this, &TerminationSignals::onReadable);
    struct sigaction action = {};
    action.sa_handler = writeToPipe;
    action.sa_flags = SA_RESTART;
    for (int const number : handledSignals)
        ::sigaction(number, &action, nullptr);
}

TerminationSignals::~TerminationSignals()
{
    for (int const number : handledSignals)
        std::signal(number, SIG_DFL);
    _notifier.reset();
    for (int& end : pipeEnds) {
        if (end >= 0)
            ::close(end);
        end = -1;
    }
}

void TerminationSignals::onReadable()
{
    char bytes[16];
    while (::read(pipeEnds[0], bytes, sizeof bytes) > 0) {
    }
    emit received();
}
