#include "FileDataSource.h"

#include "FileDataSourceThread.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavformat/avformat.h>
}

Logger* FileDataSource::log = LoggerManager::logger();

namespace
{

constexpr int closeTimeout = 90; // ms

QString const fileAddress = QStringLiteral("file://");

bool isNetworkAddress(QString const& path)
{
    return path.contains("://") && !path.startsWith(fileAddress, Qt::CaseInsensitive);
}

} // namespace

FileDataSource::FileDataSource(QString const& path, QObject* parent)
    : GLMovieDataSource(path, parent), _isNetwork(isNetworkAddress(path))
{
}

FileDataSource::~FileDataSource()
{
    blockSignals(true);
    FileDataSource::close();
}

void FileDataSource::open()
{
    if (_thread)
        return;
    setInterrupted(false);
    QString const path = uri().startsWith(fileAddress, Qt::CaseInsensitive) ? uri().mid(fileAddress.size()) : uri();
    _thread = std::make_unique<FileDataSourceThread>(path, _isNetwork, _interruption);
    connect(_thread.get(), &QThread::finished, this, &FileDataSource::onOpenFinished);
    start();
    _thread->start();
}

void FileDataSource::onOpenFinished()
{
    if (!_thread || !_thread->isFinished() || _formatContext)
        return; // From an opening that close() has ended.
    FormatContextPointer context = _thread->takeContext();
    if (!context) {
        _thread.reset();
        if (!isInterrupted())
            onErrorTimer();
        return;
    }
    setFormatContext(std::move(context));
    _isLive = _isNetwork && duration() <= 0.0;
    emit opened(this);
}

void FileDataSource::close()
{
    stop();
    if (!_thread)
        return;
    _thread->abandon();
    disconnect(_thread.get(), nullptr, this, nullptr);
    bool const ended = _thread->wait(closeTimeout);
    setFormatContext(nullptr);
    if (!ended) {
        LOG_WARNING("Opening %s goes on without effect", qPrintable(uri()));
        FileDataSourceThread* const thread = _thread.release();
        connect(thread, &QThread::finished, thread, &QObject::deleteLater);
        if (thread->isFinished())
            thread->deleteLater();
    }
    _thread.reset();
}

void FileDataSource::start()
{
    GLMovieDataSource::start();
}

void FileDataSource::stop()
{
    GLMovieDataSource::stop();
}

int FileDataSource::readFrame(AVPacket* packet)
{
    int const result = GLMovieDataSource::readFrame(packet);
    if (result >= 0 || result == AVERROR(EAGAIN) || result == AVERROR_EXIT || !_isNetwork)
        return result;
    bool const cutOff = _formatContext && _formatContext->pb && _formatContext->pb->error < 0;
    if (result == AVERROR_EOF && !_isLive && !cutOff)
        return result;
    LOG_ERROR("Lost %s: %s", qPrintable(uri()), qPrintable(FFwrapper::errorText(result)));
    reportLoss();
    return result == AVERROR_EOF ? AVERROR(EIO) : result;
}
