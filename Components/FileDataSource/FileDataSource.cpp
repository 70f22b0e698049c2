#include "FileDataSource.h"

#include "FileOpening.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavutil/error.h>
}

Logger* FileDataSource::log = LoggerManager::logger();

FileDataSource::FileDataSource(QString const& path, QObject* parent)
    : GLMovieDataSource(path, parent), _isNetwork(FileOpening::isNetwork(path))
{
}

FileDataSource::~FileDataSource()
{
    blockSignals(true);
    FileDataSource::close();
}

void FileDataSource::open()
{
    if (hasDemuxer())
        return;
    setInterrupted(false);
    start();
    startDemuxer(FileOpening(uri(), _proxy));
}

void FileDataSource::onOpeningEnded(bool success)
{
    if (!success)
        return onErrorTimer();
    _isLive = _isNetwork && duration() <= 0.0;
    emit opened(this);
}

void FileDataSource::close()
{
    stop();
    dropDemuxer();
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
    if (result == AVERROR_EOF && !_isLive)
        return result;
    LOG_ERROR("Lost %s: %s", qPrintable(uri()), qPrintable(FFwrapper::errorText(result)));
    reportLoss();
    return result == AVERROR_EOF ? AVERROR(EIO) : result;
}
