#include "HttpMmsReport.h"

#include <QCoreApplication>
#include <QList>
#include <QPair>
#include <QRegularExpression>

namespace
{

/// "en-US" of "en_US.UTF-8"; "-", which is this format's word for unknown, where nothing of the kind is set.
QString playerLanguage()
{
    static QRegularExpression const form("^([a-zA-Z]{2})[_-]([a-zA-Z]{2})");
    QRegularExpressionMatch const match = form.match(qEnvironmentVariable("LANG"));
    return match.hasMatch() ? QString(match.captured(1) + "-" + match.captured(2)) : QString("-");
}

QString element(QString const& name, QString const& text)
{
    return "<" + name + ">" + text.toHtmlEscaped() + "</" + name + ">";
}

} // namespace

QByteArray HttpMmsReport::body() const
{
    QList<QPair<QString, QString>> const fields = {
        {"Summary", url},
        {"c-ip", "0.0.0.0"},
        {"date", now.toString("yyyy-MM-dd")},
        {"time", now.date().toString("hh:mm:ss")},
        {"c-dns", "-"},
        {"cs-uri-stem", url},
        {"c-starttime", "0"},
        {"x-duration", "0"},
        {"c-rate", "1"},
        {"c-status", "200"},
        {"c-playerid", guid},
        {"c-playerversion", "11.0.5721.5145"},
        {"c-playerlanguage", playerLanguage()},
        {"cs-User-Agent", "NSPlayer"},
        {"cs-Referer", referrer},
        {"c-hostexe", "Ombravision.exe"},
        {"c-hostexever", QCoreApplication::applicationVersion()},
        {"c-os", "Linux"},
        {"c-osversion", "-"},
        {"c-cpu", "x86/PPC"},
        {"filelength", "0"},
        {"filesize", "0"},
        {"avgbandwidth", "-"},
        {"protocol", "http"},
        {"transport", "TCP"},
        {"audiocodec", "-"},
        {"videocodec", "-"},
        {"c-channelURL", "-"},
        {"sc-bytes", "-"},
        {"c-bytes", "0"},
        {"s-pkts-sent", "-"},
        {"c-pkts-received", "0"},
        {"c-pkts-lost-client", "0"},
        {"c-pkts-lost-net", "0"},
        {"c-pkts-lost-cont-net", "0"},
        {"c-resendreqs", "0"},
        {"c-pkts-recovered-ECC", "0"},
        {"c-pkts-recovered-resent", "0"},
        {"c-buffercount", "1"},
        {"c-totalbuffertime", "0"},
        {"c-quality", "100"},
        {"s-ip", "-"},
        {"s-dns", "-"},
        {"s-totalclients", "-"},
        {"s-cpu-util", "-"},
        {"cs-url", url},
        {"ContentDescription", ""},
    };
    QString text = "<XML>";
    for (auto const& [name, value] : fields)
        text += element(name, value);
    return QString(text + "</XML>").toUtf8();
}
