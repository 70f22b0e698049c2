#include "PipeReader.h"

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
}

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr int pipeWait = 50; // ms
}

bool PipeReader::isNeededFor(QByteArray const& path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode));
}

PipeReader::PipeReader(QByteArray const& path, AVIOInterruptCB const& interrupt)
    : _interrupt(interrupt.callback), _interruptOpaque(interrupt.opaque),
      _descriptor(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)),
      _error(_descriptor < 0 ? AVERROR(errno) : 0)
{
}

PipeReader::~PipeReader()
{
    if (_descriptor >= 0)
        ::close(_descriptor);
}

int PipeReader::read(void* userData, std::uint8_t* buffer, int size)
{
    auto const* const reader = static_cast<PipeReader const*>(userData);
    for (;;) {
        if (int const result = reader->waitForBytes(); result < 0)
            return result;
        ssize_t const count = ::read(reader->_descriptor, buffer, static_cast<size_t>(size));
        if (count > 0)
            return static_cast<int>(count);
        if (count == 0)
            return AVERROR_EOF;
        if (errno != EAGAIN && errno != EINTR)
            return AVERROR(errno);
    }
}

int PipeReader::waitForBytes() const
{
    for (;;) {
        if (_interrupt(_interruptOpaque))
            return AVERROR_EXIT;
        pollfd waiting = {_descriptor, POLLIN, 0};
        int const ready = poll(&waiting, 1, pipeWait);
        if (ready > 0)
            return 0;
        if (ready < 0 && errno != EINTR)
            return AVERROR(errno);
    }
}
