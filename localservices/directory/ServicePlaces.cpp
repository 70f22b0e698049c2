#include "ServicePlaces.h"

QString ServicePlaces::resolve(QString const& address, WebRequest const& request) const
{
    if (!address.startsWith('{'))
        return address;
    QString const place = address.section('}', 0, 0).mid(1);
    QString const path = address.section('}', 1);
    if (place == "web")
        return request.base() + path;
    if (place == "rtsp")
        return rtsp.isEmpty() ? QString() : "rtsp://" + rtsp + path;
    quint16 const port = place == "mms-http" ? mmsHttp : place == "mms-tcp" ? mmsTcp : 0;
    return port == 0 ? QString() : QStringLiteral("mms://%1:%2%3").arg(request.host).arg(port).arg(path);
}

QString ServicePlaces::logoOf(DirectoryChannel const& channel, WebRequest const& request) const
{
    QString const own = resolve(channel.field("logo_url"), request);
    return own.isEmpty() ? request.base() + "/logos/" + channel.id + ".png" : own;
}
