#include "DownloadableObject.h"

#include <QUrl>

QString DownloadableObject::host() const
{
    QUrl const url(uri.toString());
    bool const isSecure = url.scheme() == "https";
    if (!url.isValid() || url.host().isEmpty() || !(isSecure || url.scheme() == "http"))
        return {};
    return QString("%1://%2:%3").arg(url.scheme(), url.host()).arg(url.port(isSecure ? 443 : 80));
}
