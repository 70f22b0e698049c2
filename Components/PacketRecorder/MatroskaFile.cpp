#include "MatroskaFile.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QFile>
#include <QObject>

#include <algorithm>

Logger* MatroskaFile::log = LoggerManager::logger();

namespace
{
constexpr int ioSize = 32768;
constexpr std::int64_t maximumWait = 1000000; // µs that one stream may keep the other waiting.
} // namespace

MatroskaFile::MatroskaFile(std::unique_ptr<QFile> file, std::vector<StreamSnapshot> const& streams)
    : _file(std::move(file)), _streams(streams), _timeline(streams)
{
    avformat_alloc_output_context2(&_context, nullptr, "matroska", nullptr);
    auto* const buffer = static_cast<unsigned char*>(av_malloc(ioSize));
    _context->pb = avio_alloc_context(buffer, ioSize, 1, this, nullptr, &writeCallback, &seekCallback);
    _context->flags |= AVFMT_FLAG_CUSTOM_IO | AVFMT_FLAG_FLUSH_PACKETS;
    _context->max_interleave_delta = maximumWait;
}

MatroskaFile::~MatroskaFile()
{
    av_freep(&_context->pb->buffer);
    avio_context_free(&_context->pb);
    avformat_free_context(_context);
}

bool MatroskaFile::addStream(StreamSnapshot const& snapshot)
{
    AVStream* const stream = avformat_new_stream(_context, nullptr);
    if (!stream || avcodec_parameters_copy(stream->codecpar, snapshot.parameters.get()) < 0)
        return false;
    stream->codecpar->codec_tag = 0; // The other container's.
    stream->sample_aspect_ratio = snapshot.aspectRatio;
    return true;
}

bool MatroskaFile::begin()
{
    bool const added = std::ranges::all_of(_streams, [this](StreamSnapshot const& s) { return addStream(s); });
    AVDictionary* options = nullptr;
    av_dict_set_int(&options, "cluster_time_limit", clusterTime, 0);
    int const result = added ? avformat_write_header(_context, &options) : AVERROR(ENOMEM);
    av_dict_free(&options);
    if (result < 0 && _error.isEmpty()) {
        LOG_ERROR("Matroska refuses these streams: %s", qPrintable(FFwrapper::errorText(result)));
        _error = QObject::tr("streams of this kind cannot be recorded");
    }
    return _begun = result >= 0 && _error.isEmpty();
}

bool MatroskaFile::write(AVPacket& packet)
{
    std::size_t const output = outputOf(packet);
    if (output == _streams.size() || packet.size <= 0 || !_timeline.place(packet, output))
        return true;
    if (!_begun && !begin())
        return false;
    packet.stream_index = static_cast<int>(output);
    packet.pos = -1;
    av_packet_rescale_ts(&packet, {1, AV_TIME_BASE}, _context->streams[output]->time_base);
    int const result = av_interleaved_write_frame(_context, &packet);
    if (result < 0 && _error.isEmpty() && !std::exchange(_refusalLogged, true))
        LOG_WARNING("A packet cannot be recorded: %s", qPrintable(FFwrapper::errorText(result)));
    return _error.isEmpty();
}

std::size_t MatroskaFile::outputOf(AVPacket const& packet) const
{
    auto const found = std::ranges::find(_streams, packet.stream_index, &StreamSnapshot::index);
    return static_cast<std::size_t>(found - _streams.begin());
}

bool MatroskaFile::writeAll(QFile& file, char const* data, qint64 size)
{
    while (size > 0) {
        qint64 const count = file.write(data, size);
        if (count <= 0)
            return false;
        data += count;
        size -= count;
    }
    return true;
}

bool MatroskaFile::finish()
{
    if (!_begun) {
        _file->remove(); // Nothing has been recorded.
        return _error.isEmpty();
    }
    av_write_trailer(_context);
    return _error.isEmpty();
}

int MatroskaFile::writeCallback(void* opaque, unsigned char* data, int size)
{
    auto* const self = static_cast<MatroskaFile*>(opaque);
    if (writeAll(*self->_file, reinterpret_cast<char const*>(data), size))
        return size;
    self->_error = self->_file->errorString();
    return AVERROR(EIO);
}

std::int64_t MatroskaFile::seekCallback(void* opaque, std::int64_t offset, int origin)
{
    auto* const self = static_cast<MatroskaFile*>(opaque);
    if (origin & AVSEEK_SIZE)
        return self->_file->size();
    std::int64_t const base = origin == SEEK_CUR ? self->_file->pos() : origin == SEEK_END ? self->_file->size() : 0;
    return self->_file->seek(base + offset) ? base + offset : AVERROR(EIO);
}
