#pragma once

#include "PFDHost.h"

#include <QHash>
#include <QNetworkAccessManager>
#include <QObject>
#include <QString>

/// What of a PipelinedFileDownloader has to be made, used and deleted on the thread of the memo queue: connections,
/// replies, downloads. Its children end with it.
class PFDNetwork : public QObject
{
public:
    QNetworkAccessManager manager;
    QHash<QString, PFDHost> hosts;
    bool isReaperPosted = false;
};
