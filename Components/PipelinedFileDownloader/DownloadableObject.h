#pragma once

#include "Uri.h"

#include <QDateTime>
#include <QString>

/// What is to be fetched, and where to. A value.
struct DownloadableObject {
    Uri uri;
    QString destination;    ///< The file that the bytes go to.
    QDateTime lastModified; ///< Of the copy that is here; not valid when there is none.
    bool isUrgent = false;  ///< Goes before those that are not.

    /// What tells apart the servers: scheme, host and port; empty for an address that is none of a web server.
    QString host() const;
};
