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
    if (!_failure.isEmpty() || statusCode() != ok)
        return;
    if (_size + bytes.size() > maximumBytes) {
        abort(QStringLiteral("the object is too large"));
    } else if (!write(bytes)) {
        LOG_ERROR("Could not write bytes to file %s. Aborting download.", qPrintable(_object.destination));
        abort(_file.errorString());
    }
}

bool PFDDownload::write(QByteArray const& bytes)
{
    // Without a buffer of its own: what it could not write is not written later either.
    constexpr auto mode = QIODevice::ReadWrite | QIODevice::Truncate | QIODevice::Unbuffered;
    bool const isWritten = !_isInMemory && (_file.isOpen() || _file.open(mode)) && _file.write(bytes) == bytes.size();
    if (!isWritten) {
        if (!_isInMemory && !moveToMemory())
            return false;
        _memory.append(bytes);
    }
    _size += bytes.size();
    return true;
}

/// Takes what has been written so far back from the file, which goes. False when it cannot be read.
bool PFDDownload::moveToMemory()
{
    LOG_WARNING("%s cannot be written: %s. What comes is kept in memory.", qPrintable(_object.destination),
                qPrintable(_file.errorString()));
    if (_file.isOpen()) {
        if (_size > 0)
            _memory = _file.seek(0) ? _file.read(_size) : QByteArray();
        if (_memory.size() != _size)
            return false;
        close(false);
    }
    _isInMemory = true;
    return true;
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
