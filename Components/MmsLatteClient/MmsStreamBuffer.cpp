#include "MmsStreamBuffer.h"

#include <QMutexLocker>

#include <algorithm>
#include <utility>

bool MmsStreamBuffer::setHeader(QByteArray const& header, qint64 bitrate, qint64 packetSize)
{
    QMutexLocker const lock(&_bufferMutex);
    if (header == _descriptor)
        return false;
    _bitrate = std::clamp<qint64>(bitrate, 1, std::numeric_limits<int>::max());
    _startThreshold = _bitrate * secondsToStart / 8;
    _reconnectThreshold = _startThreshold / 2;
    _releasedBytes = _descriptor.isEmpty() ? unlimited : 0; // A reader of the stream before is not given this one's.
    _descriptor = header;
    _packetSize = packetSize;
    _entryFinder = AsfEntryFinder(header);
    drop(_buffer.size());
    _playing = false;
    _progressPercent = 0;
    _descriptorPending = true;
    return true;
}

/// A stream of a high bitrate begins with what fits.
qint64 MmsStreamBuffer::startLength() const
{
    return std::min(_startThreshold, capacity() / 2);
}

qint64 MmsStreamBuffer::capacity() const
{
    return std::max(_bufferCapacity, std::min(_bitrate * secondsToHold / 8, maximumCapacity));
}

void MmsStreamBuffer::drop(qint64 count)
{
    _buffer.skip(count);
    forget(count);
}

/// What is known of bytes that have left the buffer at its front.
void MmsStreamBuffer::forget(qint64 count)
{
    _taken += count;
    while (!_entries.empty() && _entries.front() < _taken)
        _entries.pop_front();
    if (_releasedBytes != unlimited)
        _releasedBytes = std::max<qint64>(0, _releasedBytes - count);
}

MmsStreamBuffer::Appended MmsStreamBuffer::append(QByteArray const& data)
{
    QMutexLocker const lock(&_bufferMutex);
    Appended result;
    _bytesThisSecond += data.size();
    if (_buffer.size() + data.size() > capacity()) {
        result.isFull = true;
        return result;
    }
    if (_entryFinder.isEntry(data))
        _entries.push_back(_taken + _buffer.size());
    _buffer.append(data);
    result.isNearlyFull = _buffer.size() > capacity() - std::min(reserve, capacity() / 4);
    if (!_playing && _buffer.size() < startLength()) {
        int const percent = static_cast<int>(_buffer.size() * 100 / startLength() / 10 * 10);
        if (_progressPercent <= 99 && percent != _progressPercent)
            result.percent = _progressPercent = percent;
        return result;
    }
    if (!_playing) {
        result.hasStarted = _playing = true;
        result.isNewStream = std::exchange(_descriptorPending, false);
        result.descriptorSize = _descriptor.size();
        if (!result.isNewStream)
            _releasedBytes = unlimited;
    }
    result.isReadable = true;
    return result;
}

void MmsStreamBuffer::release()
{
    QMutexLocker const lock(&_bufferMutex);
    if (_playing)
        _releasedBytes = unlimited;
}

bool MmsStreamBuffer::interrupt()
{
    QMutexLocker const lock(&_bufferMutex);
    if (!_playing)
        return false;
    _playing = false;
    _progressPercent = 0;
    _releasedBytes = _buffer.size();
    return true;
}

void MmsStreamBuffer::useReconnectThreshold()
{
    QMutexLocker const lock(&_bufferMutex);
    _startThreshold = _reconnectThreshold;
}

qint64 MmsStreamBuffer::readable() const
{
    return std::min(_buffer.size(), _releasedBytes);
}

qint64 MmsStreamBuffer::read(char* data, qint64 maxSize)
{
    QMutexLocker const lock(&_bufferMutex);
    qint64 size = std::clamp<qint64>(maxSize, 0, readable());
    if (_packetSize > 0)
        size -= size % _packetSize;
    qint64 const count = _buffer.read(data, size);
    forget(count);
    return count;
}

bool MmsStreamBuffer::hasRoom() const
{
    QMutexLocker const lock(&_bufferMutex);
    return _buffer.size() <= capacity() / 2;
}

qint64 MmsStreamBuffer::leapForward()
{
    QMutexLocker const lock(&_bufferMutex);
    qint64 const end = _taken + _buffer.size();
    qint64 const wanted = std::min(_reconnectThreshold, capacity() / 2);
    if (_entries.empty() || _buffer.size() <= wanted)
        return 0;
    auto const entry =
        std::find_if(_entries.crbegin(), _entries.crend(), [&](qint64 at) { return end - at >= wanted; });
    qint64 const count = (entry == _entries.crend() ? _entries.back() : *entry) - _taken;
    drop(count);
    return count;
}

qint64 MmsStreamBuffer::bytesAvailable() const
{
    QMutexLocker const lock(&_bufferMutex);
    return readable() < _packetSize ? 0 : readable();
}

qint64 MmsStreamBuffer::size() const
{
    QMutexLocker const lock(&_bufferMutex);
    return _buffer.size();
}

void MmsStreamBuffer::clear()
{
    QMutexLocker const lock(&_bufferMutex);
    drop(_buffer.size());
}

bool MmsStreamBuffer::isPlaying() const
{
    QMutexLocker const lock(&_bufferMutex);
    return _playing;
}

QByteArray MmsStreamBuffer::descriptor() const
{
    QMutexLocker const lock(&_bufferMutex);
    return _descriptor;
}

qint64 MmsStreamBuffer::requestedLength() const
{
    QMutexLocker const lock(&_bufferMutex);
    return _requestedBufferLength;
}

bool MmsStreamBuffer::setRequestedLength(qint64 length)
{
    if (length <= 0)
        return false;
    QMutexLocker const lock(&_bufferMutex);
    _requestedBufferLength = length;
    _bufferCapacity = std::max(length, _packetSize);
    if (_buffer.size() <= capacity())
        return false;
    _buffer.truncate(capacity());
    while (!_entries.empty() && _entries.back() >= _taken + _buffer.size())
        _entries.pop_back();
    if (_releasedBytes != unlimited)
        _releasedBytes = std::min(_releasedBytes, _buffer.size());
    return true;
}

int MmsStreamBuffer::takeBytesThisSecond()
{
    QMutexLocker const lock(&_bufferMutex);
    return static_cast<int>(std::min<qint64>(std::exchange(_bytesThisSecond, 0), std::numeric_limits<int>::max()));
}
