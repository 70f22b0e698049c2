#include "LatteInput.h"

#include "LatteClient.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

Logger* LatteInput::log = LoggerManager::logger();

namespace
{

constexpr std::chrono::milliseconds pollInterval(1); // In a read that waits for the client.
constexpr qint64 maximumPacketBytes = 1 << 20;       // A client may hand out whole packets only.

/// Whether a decoder can be made for every stream without looking at more of it.
bool isComplete(AVFormatContext const& context)
{
    for (unsigned int i = 0; i < context.nb_streams; ++i) {
        AVCodecParameters const* const p = context.streams[i]->codecpar;
        if (p->codec_type == AVMEDIA_TYPE_VIDEO && (p->width <= 0 || p->format < 0))
            return false;
        if (p->codec_type == AVMEDIA_TYPE_AUDIO && (p->sample_rate <= 0 || p->ch_layout.nb_channels <= 0))
            return false;
    }
    return true;
}

} // namespace

LatteInput::LatteInput(LatteClient& client, QByteArray const& header, QByteArray const& data)
    : _client(&client), _header(header), _data(data)
{
}

void LatteInput::leave()
{
    std::lock_guard const lock(_mutex);
    _client = nullptr;
}

void LatteInput::startReading()
{
    std::lock_guard const lock(_mutex);
    _reading = true;
}

void LatteInput::expectNewHeader()
{
    std::lock_guard const lock(_mutex);
    _ended = true;
}

bool LatteInput::isRead() const
{
    std::lock_guard const lock(_mutex);
    return _firstReadDone;
}

void LatteInput::setInterrupt(AVIOInterruptCB const& interrupt)
{
    std::lock_guard const lock(_mutex);
    _interrupt = interrupt.callback;
    _interruptOpaque = interrupt.opaque;
}

bool LatteInput::accepts(AVFormatContext* context) const
{
    std::lock_guard const lock(_mutex);
    bool const ranDry = _firstReadDone && _prevReadCallbackReturn <= 0;
    if (ranDry && !(context && isComplete(*context))) {
        LOG_ERROR("prevReadCallbackReturn %d", _prevReadCallbackReturn);
        return false;
    }
    if (!context)
        return false;
    context->pb->eof_reached = 0; // What ran dry while probing goes on when reading.
    context->pb->error = 0;
    return true;
}

int LatteInput::latteReadCallback(void* opaque, unsigned char* buffer, int size)
{
    auto* const input = static_cast<LatteInput*>(opaque);
    if (!input)
        return AVERROR_EOF;
    std::unique_lock lock(input->_mutex);
    input->_firstReadDone = true;
    int const count =
        input->_reading ? input->bytesForReading(buffer, size, lock) : input->bytesForProbing(buffer, size);
    return count == 0 ? AVERROR_EOF : count;
}

int LatteInput::bytesForProbing(unsigned char* buffer, int size)
{
    int count = static_cast<int>(std::min<qsizetype>(size, _header.size()));
    if (count > 0) {
        std::memcpy(buffer, _header.constData(), static_cast<size_t>(count));
        _header.remove(0, count);
    } else {
        count = bytesFromData(buffer, size);
    }
    return _prevReadCallbackReturn = count;
}

int LatteInput::bytesForReading(unsigned char* buffer, int size, std::unique_lock<std::mutex>& lock)
{
    for (;;) {
        if (int const count = bytesFromData(buffer, size); count > 0)
            return count;
        if (_interrupt(_interruptOpaque))
            return AVERROR_EXIT;
        if (_ended || !_client)
            return AVERROR_EOF; // What the client holds now belongs to the next header.
        bool const clientEnded = _client->state() != LatteClient::Delivering;
        if (int const count = bytesFromClient(buffer, size); count != 0)
            return count;
        if (_position < _data.size())
            continue;
        if (clientEnded)
            return AVERROR_EOF;
        lock.unlock();
        std::this_thread::sleep_for(pollInterval);
        lock.lock();
    }
}

int LatteInput::bytesFromData(unsigned char* buffer, int size)
{
    int const count = static_cast<int>(std::min<qsizetype>(size, _data.size() - _position));
    if (count == 0)
        return 0;
    std::memcpy(buffer, _data.constData() + _position, static_cast<size_t>(count));
    _position += count;
    if (_position == _data.size()) {
        _data = QByteArray();
        _position = 0;
    }
    return count;
}

int LatteInput::bytesFromClient(unsigned char* buffer, int size)
{
    qint64 const available = _client->bytesAvailable();
    if (available <= 0)
        return 0;
    if (qint64 const count = _client->read(reinterpret_cast<char*>(buffer), size); count != 0)
        return count < 0 ? AVERROR(EIO) : static_cast<int>(count);
    // The next packet may be longer than `size`.
    QByteArray bytes(std::min(available, maximumPacketBytes), Qt::Uninitialized);
    if (qint64 const count = _client->read(bytes.data(), bytes.size()); count > 0) {
        bytes.truncate(count);
        _data = bytes;
    }
    return 0;
}
