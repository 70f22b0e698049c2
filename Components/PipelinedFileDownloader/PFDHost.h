#pragma once

#include "DownloadableObject.h"

#include <QList>
#include <QSet>

class PFDDownload;
class QNetworkReply;

/// What a PipelinedFileDownloader knows of one server. On the thread of the memo queue.
class PFDHost
{
public:
    /// Urgent objects go before all others.
    void queueObject(DownloadableObject const& object);

    bool hasObjects() const { return !_queue.isEmpty(); }

    /// The next object; there must be one.
    DownloadableObject dequeueObject() { return _queue.takeFirst(); }

    /// Takes the objects of these addresses away. Returns the addresses of those that were there.
    QSet<Uri> dropObjects(QSet<Uri> const& uris);

    PFDDownload* current = nullptr; ///< What is being fetched; null when nothing is.
    qint64 msLastActive = 0;        ///< By the downloader's clock.
    QList<QNetworkReply*> oldReplies;

private:
    QList<DownloadableObject> _queue;
};
