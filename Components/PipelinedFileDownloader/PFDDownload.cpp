#include "PFDDownload.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "MemoQueue.h"
#include "PFDFinishedMemo.h"
#include "PFDReadMemo.h"

#include <QNetworkReply>

Logger* PFDDownload::log = LoggerManager::logger();

PFDDownload::PFDDownload(PipelinedFileDownloader& downloader, MemoQueue& queue, DownloadableObject const& object,
                         int number, QNetworkReply* reply, qint64 msNow, QObject* parent)
    : QObject(parent), _downloader(downloader), _queue(queue), _object(object), _number(number), _reply(reply),
      _msStarted(msNow), _file(object.destination)
{
    connect(reply, &QNetworkReply::readyRead, this, &PFDDownload::onReadyRead);
    connect(reply, &QNetworkReply::finished, this, &PFDDownload::onFinished);
}

int PFDDownload::statusCode() const
{
    return _reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

void PFDDownload::onReadyRead()
{
    if (_isReadPosted)
        return; // The memo reads all there is.
    _isReadPosted = true;
    _queue.handleNow(new PFDReadMemo(_downloader, _object.host(), _number));
}

void PFDDownload::onFinished()
{
    _queue.handleNow(new PFDFinishedMemo(_downloader, _object.host(), _number));
}

void PFDDownload::read()
{
    constexpr int ok = 200;
    _isReadPosted = false;
    QByteArray const bytes = _reply->readAll();
    if (!_failure.isEmpty() || statusCode() != ok || !open())
        return;
    if (_file.size() + bytes.size() > maximumBytes) {
        abort(QStringLiteral("the object is too large"));
    } else if (_file.write(bytes) != bytes.size() || !_file.flush()) {
        LOG_ERROR("Could not write bytes to file %s. Aborting download.", qPrintable(_object.destination));
        abort(_file.errorString());
    }
}

bool PFDDownload::open()
{
    if (_file.isOpen() || _file.open(QIODevice::WriteOnly))
        return true;
    LOG_ERROR("Could not open destination file %s for writing. Aborting download.", qPrintable(_object.destination));
    abort(_file.errorString());
    return false;
}

void PFDDownload::abort(QString const& reason)
{
    _failure = reason;
    _reply->abort(); // Which finishes it.
}

void PFDDownload::close(bool isWanted)
{
    _file.close();
    if (!isWanted)
        _file.remove();
}
