#include "StreamDocuments.h"

#include "BroadcastCatalogue.h"

#include <QRegularExpression>

namespace
{
constexpr quint16 deadPort = 1; // Where connections are refused on any machine of today.

QString address(QString const& scheme, QString const& host, quint16 port, QString const& path)
{
    return QStringLiteral("%1://%2:%3%4").arg(scheme, host).arg(port).arg(path);
}

QString hostOf(QByteArray const& hostLine)
{
    static QRegularExpression const pattern(
        QStringLiteral(R"(^([A-Za-z0-9.-]{1,253}|\[[0-9A-Fa-f:.]{2,45}\])(:\d+)?$)"));
    QRegularExpressionMatch const match = pattern.match(QString::fromLatin1(hostLine.left(300)));
    return match.hasMatch() ? match.captured(1) : QStringLiteral("127.0.0.1");
}
} // namespace

void StreamDocuments::setPorts(quint16 http, quint16 tcp)
{
    _httpPort = http;
    _tcpPort = tcp;
}

std::optional<StreamDocuments::Document> StreamDocuments::find(QString const& path, QByteArray const& hostLine) const
{
    QString const host = hostOf(hostLine);
    if (path == "/")
        return Document{"text/plain;charset=UTF-8", addresses(host)};
    qsizetype const dot = path.lastIndexOf('.');
    QString const name = path.left(dot);
    QString const extension = path.mid(dot + 1);
    if (dot < 0 || !_catalogue.names().contains(name))
        return std::nullopt;
    if (extension == "asx")
        return Document{"video/x-ms-asf", asx(name, host)};
    if (extension == "wvx")
        return Document{"video/x-ms-wvx", asx(name, host)};
    if (extension == "ref")
        return Document{"video/x-ms-asf", reference(name, host)};
    return std::nullopt;
}

QByteArray StreamDocuments::addresses(QString const& host) const
{
    QString text;
    for (QString const& name : _catalogue.names()) {
        text += addressesOf(name, host).join('\n') + '\n';
        if (_httpPort != 0)
            text += address("http", host, _httpPort, name + ".asx") + '\n' +
                    address("http", host, _httpPort, name + ".ref") + '\n';
    }
    return text.toUtf8();
}

QStringList StreamDocuments::addressesOf(QString const& name, QString const& host) const
{
    QStringList all;
    for (quint16 const port : {_httpPort, _tcpPort}) {
        if (port != 0)
            all.append(address("mms", host, port, name));
    }
    return all;
}

QByteArray StreamDocuments::asx(QString const& name, QString const& host) const
{
    QString text = QStringLiteral("<ASX version=\"3.0\">\r\n  <TITLE>%1</TITLE>\r\n").arg(name.toHtmlEscaped());
    auto const addEntry = [&](QString const& title, QStringList const& addresses) {
        text += QStringLiteral("  <ENTRY>\r\n    <TITLE>%1</TITLE>\r\n").arg(title.toHtmlEscaped());
        for (QString const& place : addresses)
            text += QStringLiteral("    <REF HREF=\"%1\" />\r\n").arg(place.toHtmlEscaped());
        text += QStringLiteral("  </ENTRY>\r\n");
    };
    for (int i = 1; i <= _deadEntries; ++i)
        addEntry(QStringLiteral("Dead entry %1").arg(i), {address("mms", host, deadPort, name)});
    addEntry(name, addressesOf(name, host));
    return (text + "</ASX>\r\n").toUtf8();
}

QByteArray StreamDocuments::reference(QString const& name, QString const& host) const
{
    QString text = QStringLiteral("[Reference]\r\n");
    int number = 0;
    for (int i = 0; i < _deadEntries; ++i)
        text += QStringLiteral("Ref%1=%2\r\n").arg(++number).arg(address("http", host, deadPort, name));
    if (_httpPort != 0)
        text += QStringLiteral("Ref%1=%2\r\n").arg(++number).arg(address("http", host, _httpPort, name));
    if (_tcpPort != 0)
        text += QStringLiteral("Ref%1=%2\r\n").arg(++number).arg(address("mms", host, _tcpPort, name));
    return text.toUtf8();
}
