#include "FileOpening.h"

#include "FFmpegErrors.h"
#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "NetworkErrors.h"
#include "PipeReader.h"
#include "StreamOpener.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QCoreApplication>
#include <QUrl>
#include <QUrlQuery>

#include <algorithm>
#include <string_view>

Logger* FileOpening::log = LoggerManager::logger();

namespace
{

/// What an address of the network may lead to, playlists and redirections included.
constexpr char const* networkProtocols =
    "http,https,httpproxy,tls,tcp,udp,udplite,rtp,srtp,rtmp,rtmps,rtmpt,rtmpts,ffrtmphttp,mmsh,mmst,srt,crypto,data";

using IoOpen = decltype(AVFormatContext::io_open);

IoOpen defaultIoOpen()
{
    static IoOpen const function = [] {
        AVFormatContext* context = avformat_alloc_context();
        IoOpen const result = context->io_open;
        avformat_free_context(context);
        return result;
    }();
    return function;
}

/// Whether the clock of a film in a transport stream, of 33 bits at 90 kHz, begins anew before its end.
bool wrapsAround(AVFormatContext const& film)
{
    static constexpr std::int64_t wrap = (std::int64_t(1) << 33) / 90 * (AV_TIME_BASE / 1000);
    std::string_view const format = film.iformat->name;
    if ((format != "mpegts" && format != "hls") || film.start_time == AV_NOPTS_VALUE ||
        StreamOpener::describe(film).endless)
        return false;
    return film.duration <= 0 || film.start_time + film.duration > wrap;
}

} // namespace

bool FileOpening::isNetwork(QString const& name)
{
    return name.contains("://") && !FileName::isAddress(name);
}

bool FileOpening::isListening(QString const& name)
{
    QUrl const url(name);
    QUrlQuery const query(url);
    static QStringList const connectionless{"udp", "udplite", "rtp", "srtp"};
    return connectionless.contains(url.scheme()) ||
           (query.hasQueryItem("listen") && query.queryItemValue("listen") != "0") ||
           query.queryItemValue("mode") == "listener";
}

bool FileOpening::Progress::isForGood() const
{
    int const code = error;
    if (isAnswered) // What it leads to may come still.
        return code == AVERROR_INVALIDDATA || code == AVERROR_STREAM_NOT_FOUND;
    // EIO is FFmpeg's word for a host that nobody knows and for a certificate that nobody trusts.
    static constexpr int refusals[] = {AVERROR_HTTP_BAD_REQUEST,
                                       AVERROR_HTTP_UNAUTHORIZED,
                                       AVERROR_HTTP_FORBIDDEN,
                                       AVERROR_HTTP_NOT_FOUND,
                                       AVERROR_PROTOCOL_NOT_FOUND,
                                       AVERROR(EINVAL),
                                       AVERROR(EIO)};
    return std::ranges::find(refusals, code) != std::end(refusals);
}

QString FileOpening::Progress::reason() const
{
    auto const ofStatus = [](int status) {
        return NetworkErrors::stringForError(NetworkErrors::ofHttpStatus(status));
    };
    switch (error) {
    case AVERROR_HTTP_BAD_REQUEST:
    case AVERROR_HTTP_OTHER_4XX:
        return ofStatus(400);
    case AVERROR_HTTP_UNAUTHORIZED:
        return ofStatus(401);
    case AVERROR_HTTP_FORBIDDEN:
    case AVERROR_HTTP_NOT_FOUND:
        return ofStatus(404);
    case AVERROR_HTTP_SERVER_ERROR:
        return ofStatus(500);
    case AVERROR(ECONNREFUSED):
        return NetworkErrors::stringForError(NetworkErrors::CouldNotConnect);
    case AVERROR_INVALIDDATA:
    case AVERROR_STREAM_NOT_FOUND:
        return NetworkErrors::nothingToPlay();
    default:
        return isUntrusted ? NetworkErrors::untrustedCertificate() : QString();
    }
}

FileOpening::FileOpening(QString const& name, QNetworkProxy const& proxy)
    : _name(FileName::fromAddress(name)), _proxy(proxy), _isNetwork(isNetwork(name)),
      _path(_isNetwork ? name.toUtf8() : FileName::toLocal8Bit(name))
{
}

FormatContextPointer FileOpening::operator()(Demuxer const& demuxer) const
{
    LOG_INFO("Opening %s", qPrintable(_name));
    if (_isNetwork)
        return openAddress(demuxer);
    AVFormatContext* const prepared = avformat_alloc_context();
    if (PipeReader::isNeededFor(_path))
        return openPipe(prepared, demuxer);
    // With its protocol in front, no file name can be taken for an address.
    return StreamOpener::open(prepared, {StreamOpener::File, _name, "file:" + _path}, demuxer);
}

FormatContextPointer FileOpening::openAddress(Demuxer const& demuxer) const
{
    _proxy.warnUnlessUsable(_path);
    // A sender that begins anew is not one that has sent for a day: the movie's clock follows what goes back.
    FormatContextPointer context = openOnce(false, demuxer);
    if (!context || !wrapsAround(*context))
        return context;
    LOG_INFO("The clock of %s begins anew before its end", qPrintable(_name)); // Else it could not be sought.
    FormatContextPointer unwrapped = openOnce(true, demuxer);
    return unwrapped ? std::move(unwrapped) : std::move(context);
}

FormatContextPointer FileOpening::openOnce(bool unwraps, Demuxer const& demuxer) const
{
    AVFormatContext* const prepared = avformat_alloc_context();
    prepared->opaque = const_cast<FileOpening*>(this); // The demuxer keeps this for as long as the context.
    prepared->io_open = &openNested;
    prepared->protocol_whitelist = av_strdup(networkProtocols);
    prepared->correct_ts_overflow = unwraps ? 1 : 0;
    int error = 0;
    FormatContextPointer context = StreamOpener::open(prepared, {StreamOpener::File, _name, _path}, demuxer, &error);
    if (!context && _progress->error == 0)
        _progress->error = error;
    return context;
}

FormatContextPointer FileOpening::openPipe(AVFormatContext* prepared, Demuxer const& demuxer) const
{
    _pipe = std::make_shared<PipeReader>(_path, demuxer.interruptCallback());
    if (_pipe->error() < 0) {
        LOG_ERROR("Could not open %s: %s", qPrintable(_name), qPrintable(FFwrapper::errorText(_pipe->error())));
        avformat_free_context(prepared);
        return nullptr;
    }
    FFwrapper::setFFHandler(prepared, &PipeReader::read, nullptr, _pipe.get());
    return StreamOpener::open(prepared, {StreamOpener::File, _name, {}}, demuxer);
}

int FileOpening::openNested(AVFormatContext* context, AVIOContext** io, char const* url, int flags,
                            AVDictionary** options)
{
    AVDictionary* all = nullptr; // A copy: whoever calls need not free what it has not set itself.
    if (options)
        av_dict_copy(&all, *options, 0);
    av_dict_set(&all, "tls_verify", "1", 0); // FFmpeg trusts any certificate unless told.
    av_dict_set(&all, "user_agent", QCoreApplication::applicationName().toUtf8().constData(), 0);
    auto const* const opening = static_cast<FileOpening const*>(context->opaque);
    // Even an empty one, or FFmpeg would take that of the environment.
    av_dict_set(&all, "http_proxy", opening->_proxy.forAddress(url).constData(), 0);
    FFmpegErrors const errors;
    int const result = defaultIoOpen()(context, io, url, flags, &all);
    av_dict_free(&all);
    if (result >= 0) {
        opening->_progress->isAnswered = true;
        opening->_progress->isBroken = false;
        return result;
    }
    opening->_progress->isUntrusted = errors.last().contains("certificate");
    opening->_progress->error = result;
    opening->_progress->isBroken = result != AVERROR_EXIT;
    if (result == AVERROR(EIO) && !errors.last().isEmpty()) // Says nothing itself.
        LOG_ERROR("%s", errors.last().constData());
    return result;
}
