#include "ByteQueue.h"

#include <algorithm>
#include <cstring>
#include <utility>

void ByteQueue::append(QByteArray const& bytes)
{
    for (qint64 done = 0; done < bytes.size();) {
        qint64 const offset = _end % blockSize;
        if (_end / blockSize == static_cast<qint64>(_blocks.size()))
            _blocks.push_back(_spare ? std::move(_spare) : Block(new char[blockSize]));
        qint64 const count = std::min<qint64>(bytes.size() - done, blockSize - offset);
        std::memcpy(_blocks.back().get() + offset, bytes.constData() + done, static_cast<size_t>(count));
        _end += count;
        done += count;
    }
}

qint64 ByteQueue::read(char* data, qint64 maxSize)
{
    qint64 const size = std::clamp<qint64>(maxSize, 0, this->size());
    for (qint64 done = 0; done < size;) {
        qint64 const count = std::min(size - done, blockSize - _front);
        std::memcpy(data + done, _blocks.front().get() + _front, static_cast<size_t>(count));
        _front += count;
        done += count;
        if (_front == blockSize) {
            _spare = std::move(_blocks.front());
            _blocks.pop_front();
            _front = 0;
            _end -= blockSize;
        }
    }
    return size;
}

void ByteQueue::skip(qint64 count)
{
    _front += std::clamp<qint64>(count, 0, size());
    for (; _front >= blockSize; _front -= blockSize, _end -= blockSize)
        _blocks.pop_front();
}

void ByteQueue::truncate(qint64 size)
{
    _end = std::min(_end, _front + std::max<qint64>(size, 0));
    while (!_blocks.empty() && _end <= (static_cast<qint64>(_blocks.size()) - 1) * blockSize)
        _blocks.pop_back();
}

void ByteQueue::clear()
{
    *this = ByteQueue();
}
