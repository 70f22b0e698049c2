#include "FileDataSourceThread.h"

#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QCoreApplication>

Logger* FileDataSource::FileDataSourceThread::log = LoggerManager::logger();

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

} // namespace

FileDataSource::FileDataSourceThread::FileDataSourceThread(QString const& path, bool isNetwork,
                                                           std::shared_ptr<std::atomic<bool>> interruption)
    : _path(path), _isNetwork(isNetwork), _interruption(std::move(interruption)), _deadline(firstFrameTimeout)
{
}

FileDataSource::FileDataSourceThread::~FileDataSourceThread()
{
    wait();
    takeContext().reset(); // What nobody has taken ends while the callbacks that it asks are still there.
}

FormatContextPointer FileDataSource::FileDataSourceThread::takeContext()
{
    std::lock_guard const lock(_mutex);
    return std::move(_context);
}

void FileDataSource::FileDataSourceThread::run()
{
    FormatContextPointer context = openInternal();
    _opening = false;
    std::lock_guard const lock(_mutex);
    _context = std::move(context);
}

FormatContextPointer FileDataSource::FileDataSourceThread::openInternal()
{
    LOG_INFO("Opening %s", qPrintable(_path));
    AVFormatContext* opened = avformat_alloc_context();
    opened->interrupt_callback = {&interruptCallback, this};
    if (_isNetwork) {
        opened->io_open = &openNested;
        opened->protocol_whitelist = av_strdup(networkProtocols);
    }
    // With its protocol in front, no file name can be taken for an address.
    QString const url = _isNetwork ? _path : QString("file:" + _path);
    if (int const result = FFwrapper::openContext(opened, url.toUtf8().constData(), nullptr); result < 0) {
        LOG_ERROR("Could not open %s: %s", qPrintable(_path), qPrintable(FFwrapper::errorText(result)));
        return nullptr;
    }
    FormatContextPointer context(opened);
    if (int const result = avformat_find_stream_info(opened, nullptr); result < 0) {
        LOG_ERROR("av_find_stream_info failed. Cannot play");
        return nullptr;
    }
    int const video = firstStream(opened, AVMEDIA_TYPE_VIDEO);
    int const audio = firstStream(opened, AVMEDIA_TYPE_AUDIO);
    if (video < 0 && audio < 0) {
        LOG_ERROR("No video or audio streams found. Cannot play");
        return nullptr;
    }
    LOG_DEBUG("Video stream index = %d Audio stream index = %d", video, audio);
    return context;
}

int FileDataSource::FileDataSourceThread::interruptCallback(void* opaque)
{
    auto const* const thread = static_cast<FileDataSourceThread const*>(opaque);
    return thread->_abandoned || *thread->_interruption || (thread->_opening && thread->_deadline.hasExpired()) ? 1
                                                                                                                : 0;
}

int FileDataSource::FileDataSourceThread::openNested(AVFormatContext* context, AVIOContext** io, char const* url,
                                                     int flags, AVDictionary** options)
{
    AVDictionary* all = nullptr; // A copy: whoever calls need not free what it has not set itself.
    if (options)
        av_dict_copy(&all, *options, 0);
    av_dict_set(&all, "tls_verify", "1", 0); // FFmpeg trusts any certificate unless told.
    av_dict_set(&all, "user_agent", QCoreApplication::applicationName().toUtf8().constData(), 0);
    int const result = defaultIoOpen()(context, io, url, flags, &all);
    av_dict_free(&all);
    return result;
}
