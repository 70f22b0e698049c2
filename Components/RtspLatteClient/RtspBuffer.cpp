#include "RtspBuffer.h"

#include <algorithm>
#include <cstring>
#include <utility>

qint64 RtspBuffer::append(QByteArray const& chunk, bool isEntry)
{
    std::lock_guard const lock(_mutex);
    if (_skipping && !isEntry)
        return chunk.size();
    _skipping = false;
    _chunks.push_back({chunk, isEntry});
    _chunkBytes += chunk.size();
    return dropToCapacity();
}

qint64 RtspBuffer::read(char* data, qint64 size)
{
    std::lock_guard const lock(_mutex);
    qint64 done = 0;
    while (done < size) {
        if (_position == _current.size()) {
            _current = QByteArray();
            _position = 0;
            if (_chunks.empty())
                break;
            _current = std::move(_chunks.front().bytes);
            _chunks.pop_front();
            _chunkBytes -= _current.size();
        }
        qint64 const count = std::min<qint64>(size - done, _current.size() - _position);
        std::memcpy(data + done, _current.constData() + _position, static_cast<size_t>(count));
        _position += count;
        done += count;
    }
    return done;
}

qint64 RtspBuffer::size() const
{
    std::lock_guard const lock(_mutex);
    return _chunkBytes + _current.size() - _position;
}

qint64 RtspBuffer::setCapacity(qint64 capacity)
{
    std::lock_guard const lock(_mutex);
    _capacity = capacity;
    return dropToCapacity();
}

qint64 RtspBuffer::capacity() const
{
    std::lock_guard const lock(_mutex);
    return _capacity;
}

void RtspBuffer::clear()
{
    std::lock_guard const lock(_mutex);
    clearLocked();
    if (_position == 0)
        _current.clear();
}

void RtspBuffer::reset()
{
    std::lock_guard const lock(_mutex);
    clearLocked();
    _current.clear();
    _position = 0;
}

void RtspBuffer::clearLocked()
{
    _chunks.clear();
    _chunkBytes = 0;
    _skipping = true;
}

qint64 RtspBuffer::dropToCapacity()
{
    qint64 dropped = 0;
    auto const held = [this] {
        return _chunkBytes + static_cast<qint64>(_chunks.size()) * chunkUpkeep + _current.size() - _position;
    };
    while (!_chunks.empty() && held() > _capacity) {
        do {
            dropped += _chunks.front().bytes.size();
            _chunkBytes -= _chunks.front().bytes.size();
            _chunks.pop_front();
        } while (!_chunks.empty() && !_chunks.front().isEntry);
        _skipping = _chunks.empty();
    }
    return dropped;
}
