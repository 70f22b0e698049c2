#include "DownloadBuffer.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avio.h>
#include <libavutil/error.h>
}

#include <algorithm>
#include <chrono>
#include <cstring>

Logger* DownloadBuffer::log = LoggerManager::logger();

namespace
{
constexpr std::chrono::milliseconds interruptPoll(10);
}

void DownloadBuffer::setState(State state)
{
    std::lock_guard const lock(_mutex);
    _state = state;
    _changed.notify_all();
}

DownloadBuffer::State DownloadBuffer::state() const
{
    std::lock_guard const lock(_mutex);
    return _state;
}

qsizetype DownloadBuffer::append(QByteArray const& bytes, qint64 contentLength)
{
    std::lock_guard const lock(_mutex);
    _contentLength = contentLength;
    _bytes.append(bytes);
    _changed.notify_all();
    return _bytes.size();
}

bool DownloadBuffer::hasLength() const
{
    std::lock_guard const lock(_mutex);
    return _contentLength >= 0;
}

qsizetype DownloadBuffer::size() const
{
    std::lock_guard const lock(_mutex);
    return _bytes.size();
}

qint64 DownloadBuffer::position() const
{
    std::lock_guard const lock(_mutex);
    return _position;
}

QByteArray DownloadBuffer::rewind(qsizetype size)
{
    std::lock_guard const lock(_mutex);
    _position = 0;
    return _bytes.left(size);
}

void DownloadBuffer::setInterrupt(AVIOInterruptCB const& interrupt)
{
    std::lock_guard const lock(_mutex);
    _interrupt = interrupt.callback;
    _interruptOpaque = interrupt.opaque;
}

int DownloadBuffer::read(void* userData, unsigned char* buffer, int size)
{
    auto* const self = static_cast<DownloadBuffer*>(userData);
    std::unique_lock lock(self->_mutex);
    while (self->_state == Running && self->_position >= self->_bytes.size()) {
        if (self->_interrupt(self->_interruptOpaque))
            return AVERROR_EXIT;
        self->_changed.wait_for(lock, interruptPoll);
    }
    if (int const count = self->readBytes(buffer, size); count > 0)
        return count;
    if (self->_state == Finished)
        return AVERROR_EOF;
    LOG_WARNING("This should not happen before we finish the download");
    return AVERROR(EIO);
}

int DownloadBuffer::readBytes(unsigned char* buffer, int size)
{
    qint64 const left = _bytes.size() - _position;
    if (left < 0)
        LOG_DEBUG("FFmpeg tried to read beyond the end of the available data.");
    if (left <= 0)
        return 0;
    int const count = static_cast<int>(std::min<qint64>(size, left));
    std::memcpy(buffer, _bytes.constData() + _position, static_cast<size_t>(count));
    LOG_DEBUG("FFmpeg read %d bytes from offset %ld", count, static_cast<long>(_position));
    _position += count;
    return count;
}

std::int64_t DownloadBuffer::seek(void* userData, std::int64_t offset, int origin)
{
    auto* const self = static_cast<DownloadBuffer*>(userData);
    std::lock_guard const lock(self->_mutex);
    if (origin & AVSEEK_SIZE)
        return self->_state == Finished   ? self->_bytes.size()
               : self->_contentLength > 0 ? self->_contentLength
                                          : AVERROR(ENOSYS);
    origin &= ~AVSEEK_FORCE;
    if (origin != SEEK_SET && origin != SEEK_CUR)
        return AVERROR(EINVAL);
    std::int64_t const base = origin == SEEK_CUR ? self->_position : 0;
    std::int64_t target = 0;
    if (__builtin_add_overflow(base, offset, &target) || target < 0)
        return AVERROR(EINVAL);
    self->_position = target;
    return target;
}
