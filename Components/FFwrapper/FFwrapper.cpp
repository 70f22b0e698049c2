#include "FFwrapper.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/error.h>
#include <libavutil/mem.h>
}

#include <QtEndian>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

Logger* FFwrapper::log = LoggerManager::logger();

namespace
{

constexpr int defaultIoSize = 32768;

/// What contextFromHeader() still has to hand out.
struct HeaderReader {
    char const* next;
    int left;
};

int readHeader(void* userData, std::uint8_t* buffer, int size)
{
    auto* const reader = static_cast<HeaderReader*>(userData);
    if (!reader || reader->left == 0)
        return AVERROR_EOF;
    int const count = std::min(size, reader->left);
    std::memcpy(buffer, reader->next, static_cast<size_t>(count));
    reader->next += count;
    reader->left -= count;
    return count;
}

void freeIo(AVIOContext* io)
{
    if (!io)
        return;
    av_freep(&io->buffer); // FFmpeg may have replaced the buffer that it was given.
    avio_context_free(&io);
}

/// The maximum bitrate that an ASF header's File Properties Object states, which FFmpeg keeps to itself; else 0.
std::int64_t asfMaximumBitrate(QByteArray const& header)
{
    constexpr qsizetype bitrateOffset = 100; // From the beginning of the object, four bytes, little-endian.
    static QByteArray const filePropertiesId = QByteArray::fromHex("a1dcab8c47a9cf118ee400c00c205365");
    qsizetype const object = header.indexOf(filePropertiesId);
    if (object < 0 || header.size() - object < bitrateOffset + 4)
        return 0;
    return qFromLittleEndian<quint32>(header.constData() + object + bitrateOffset);
}

AVIOContext* customIoOf(AVFormatContext const* context)
{
    return context && (context->flags & AVFMT_FLAG_CUSTOM_IO) ? context->pb : nullptr;
}

} // namespace

FFwrapper::FFwrapper(QObject* parent) : QObject(parent)
{
    LOG_DEBUG("Constructed");
}

FFwrapper::~FFwrapper()
{
    LOG_DEBUG("Destroyed");
}

AVFormatContext* FFwrapper::contextFromHeader(void const* header, int size)
{
    if (!header || size <= 0)
        return nullptr;
    QByteArray const bytes = QByteArray::fromRawData(static_cast<char const*>(header), size);
    AVInputFormat const* const format = probeFormat(bytes);
    if (!format)
        return nullptr;
    HeaderReader reader{bytes.constData(), size};
    AVFormatContext* context = avformat_alloc_context();
    if (setFFHandler(context, readHeader, nullptr, &reader) != 0)
        return nullptr;
    if (int const result = openContext(context, "", format); result < 0) {
        LOG_DEBUG("The header was refused: %s", qPrintable(errorText(result)));
        return nullptr;
    }
    if (context->bit_rate <= 0)
        context->bit_rate = asfMaximumBitrate(bytes);
    context->pb->opaque = nullptr; // The reader ends with this function.
    return context;
}

int FFwrapper::setFFHandler(AVFormatContext* context, ReadCallback read, SeekCallback seek, void* userData)
{
    if (!context)
        return -1;
    int const ioSize = context->pb && context->pb->buffer_size > 0 ? context->pb->buffer_size : defaultIoSize;
    freeIo(customIoOf(context));
    auto* const buffer = static_cast<unsigned char*>(av_malloc(static_cast<size_t>(ioSize)));
    context->pb = avio_alloc_context(buffer, ioSize, 0, userData, read, nullptr, seek);
    context->flags |= AVFMT_FLAG_CUSTOM_IO;
    return 0;
}

int FFwrapper::openContext(AVFormatContext*& context, char const* url, AVInputFormat const* format)
{
    AVIOContext* const io = customIoOf(context);
    AVDictionary* options = nullptr;
    if (!context->correct_ts_overflow)
        av_dict_set(&options, "seg_format_options", "correct_ts_overflow=0", 0);
    int const result = avformat_open_input(&context, url, format, &options);
    av_dict_free(&options);
    if (result < 0)
        freeIo(io); // avformat_open_input() has freed all but this.
    return result;
}

void FFwrapper::closeContext(AVFormatContext*& context)
{
    AVIOContext* const io = customIoOf(context);
    avformat_close_input(&context);
    freeIo(io);
}

AVInputFormat const* FFwrapper::probeFormat(QByteArray const& beginning, int* score)
{
    QByteArray padded = beginning;
    padded.append(AVPROBE_PADDING_SIZE, '\0');
    AVProbeData probe{};
    probe.filename = "";
    probe.buf = reinterpret_cast<unsigned char*>(padded.data());
    probe.buf_size = static_cast<int>(beginning.size());
    int found = 0;
    AVInputFormat const* const format = av_probe_input_format3(&probe, 1, &found);
    if (score)
        *score = found;
    return format;
}

int FFwrapper::getMaxBitrate(AVFormatContext const* context)
{
    if (!context)
        return 0;
    std::int64_t total = context->bit_rate;
    if (total <= 0) {
        total = 0;
        for (unsigned int i = 0; i < context->nb_streams; ++i)
            total += std::max<std::int64_t>(context->streams[i]->codecpar->bit_rate, 0);
    }
    return static_cast<int>(std::min<std::int64_t>(total, INT_MAX));
}

int FFwrapper::getAsfPacketSize(AVFormatContext const* context)
{
    return context ? static_cast<int>(std::min<unsigned int>(context->packet_size, INT_MAX)) : 0;
}

QString FFwrapper::errorText(int error)
{
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(error, text.data(), text.size());
    return QString::fromUtf8(text.data());
}
