#include "ByteQueue.h"

#include <algorithm>
#include <cstring>

void ByteQueue::append(QByteArray const& bytes)
{
    _bytes.append(bytes);
}

qint64 ByteQueue::read(char* data, qint64 maxSize)
{
    qint64 const count = std::clamp<qint64>(maxSize, 0, size());
    if (count == 0)
        return 0;
    std::memcpy(data, _bytes.constData() + _front, static_cast<size_t>(count));
    _front += count;
    if (_front == _bytes.size()) {
        _bytes.truncate(0); // Keeps the memory: as much comes again.
        _front = 0;
    } else if (_front > _bytes.size() / 2) {
        std::memmove(_bytes.data(), _bytes.constData() + _front, static_cast<size_t>(size()));
        _bytes.truncate(size());
        _front = 0;
    }
    return count;
}

void ByteQueue::truncate(qint64 size)
{
    if (size < this->size())
        _bytes.truncate(_front + std::max<qint64>(size, 0));
}

void ByteQueue::clear()
{
    _bytes = QByteArray();
    _front = 0;
}
