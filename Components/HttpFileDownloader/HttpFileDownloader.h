#pragma once

#include "HttpResponseHeader.h"
#include "Uri.h"

#include <QFile>
#include <QObject>
#include <QString>
#include <QUrl>

#include <atomic>
#include <memory>

class HttpClient;
class HttpClientFactory;
class Logger;

/// Downloads one file over HTTP. It is written beside its place, and takes it, all of it on the disk, at the end;
/// until then what is there stays, and so it does after a failure. A few redirections are followed, but not from
/// https to http.
///
/// Lives on the thread that made it, which does not wait for the disk at the end. May be deleted from its signals.
class HttpFileDownloader : public QObject
{
    Q_OBJECT

public:
    static constexpr int maximumRedirections = 5;

    /// The factory is borrowed, and outlives the downloader.
    HttpFileDownloader(HttpClientFactory* httpClientFactory, Uri const& uri, QString const& path,
                       QObject* parent = nullptr);

    /// As cancel(), without a signal.
    ~HttpFileDownloader() override;

    Uri uri() const { return _uri; }
    QString path() const { return _path; }

    /// Bytes so far and in all; a total of 0 is not known.
    qint64 bytesDone() const { return _bytesDone; }
    qint64 bytesTotal() const { return _bytesTotal; }

    /// What went wrong, in words; empty before error().
    QString errorString() const { return _errorString; }

    /// Begins, unless it is under way; anew after an end.
    void start();

    /// Ends it; does nothing unless it is under way.
    void cancel();

signals:
    void started(HttpFileDownloader* downloader);
    void complete(HttpFileDownloader* downloader);
    void progressChanged(HttpFileDownloader* downloader);
    void cancelled(HttpFileDownloader* downloader);
    void error(HttpFileDownloader* downloader);

private slots:
    void onDone(HttpClient* client, bool error);
    void onResponseHeaderReceived(HttpClient* client, HttpResponseHeader const& header);
    void onDataReadProgress(HttpClient* client, int done, int total);

private:
    QString temporaryPath() const;
    bool send(QUrl const& url);
    void release();
    bool writeArrived();
    void redirect(QString const& location);
    void fail(QString const& text);
    void finish();

    static Logger* log;

    HttpClientFactory* const _httpClientFactory;
    Uri const _uri;
    QString const _path;
    HttpClient* _client = nullptr; ///< Null when nothing is fetched.
    QUrl _url;                     ///< That is being asked.
    HttpResponseHeader _header;
    QFile _file;
    bool _isUnderWay = false;
    std::shared_ptr<std::atomic_bool> _isDropped; ///< Read by the thread that moves the file, at the last moment.
    int _attempt = 0; ///< Counts the starts, so that the end of an earlier one is not taken for that of the last.
    int _redirections = 0;
    qint64 _bytesDone = 0;
    qint64 _bytesTotal = 0;
    QString _errorString;
};
