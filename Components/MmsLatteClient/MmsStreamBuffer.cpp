#include "MmsStreamBuffer.h"

#include <QMutexLocker>

#include <algorithm>
#include <utility>

bool MmsStreamBuffer::setHeader(QByteArray const& header, qint64 bitrate, qint64 packetSize)
{
    QMutexLocker const lock(&_bufferMutex);
    if (header == _descriptor)
        return false;
    _startThreshold = std::clamp<qint64>(bitrate, 1, std::numeric_limits<int>::max()) * secondsToStart / 8;
    _reconnectThreshold = _startThreshold / 2;
    _releasedBytes = _descriptor.isEmpty() ? unlimited : 0; // A reader of the stream before is not given this one's.
    _descriptor = header;
    _packetSize = packetSize;
    _buffer.clear();
    _playing = false;
    _progressPercent = 0;
    _descriptorPending = true;
    return true;
}

/// A stream of a high bitrate begins with what fits.
qint64 MmsStreamBuffer::startLength() const
{
    return std::min(_startThreshold, _bufferCapacity / 2);
}

MmsStreamBuffer::Appended MmsStreamBuffer::append(QByteArray const& data)
{
    QMutexLocker const lock(&_bufferMutex);
    Appended result;
    _bytesThisSecond += data.size();
    if (_buffer.size() + data.size() > _bufferCapacity) {
        result.isFull = true;
        return result;
    }
    _buffer.append(data);
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
        _releasedBytes = unlimited;
    }
    result.isReadable = true;
    return result;
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
    if (_releasedBytes != unlimited)
        _releasedBytes -= count;
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
    _buffer.clear();
    if (_releasedBytes != unlimited)
        _releasedBytes = 0;
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
    if (_buffer.size() <= _bufferCapacity)
        return false;
    _buffer.truncate(_bufferCapacity);
    if (_releasedBytes != unlimited)
        _releasedBytes = std::min(_releasedBytes, _buffer.size());
    return true;
}

int MmsStreamBuffer::takeBytesThisSecond()
{
    QMutexLocker const lock(&_bufferMutex);
    return static_cast<int>(std::min<qint64>(std::exchange(_bytesThisSecond, 0), std::numeric_limits<int>::max()));
}
