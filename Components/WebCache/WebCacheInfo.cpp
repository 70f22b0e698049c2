#include "WebCacheInfo.h"

#include "BoundedXmlReader.h"
#include "HttpDate.h"

#include <QXmlStreamWriter>

QByteArray WebCacheInfo::toXml() const
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument();
    xml.writeStartElement("webcache-info");
    if (lastModified.isValid())
        xml.writeTextElement("last-modified", HttpDate::toString(lastModified));
    xml.writeTextElement("expires-at", QString::number(expiresAt));
    xml.writeTextElement("address", address);
    xml.writeEndDocument();
    return bytes;
}

std::optional<WebCacheInfo> WebCacheInfo::parse(QByteArray const& xml)
{
    if (xml.size() > maximumBytes)
        return std::nullopt;
    BoundedXmlReader reader(xml);
    WebCacheInfo info;
    QString root;
    QString tag;
    while (!reader.atEnd()) {
        switch (reader.next()) {
        case QXmlStreamReader::StartElement:
            tag = reader.name().toString();
            root = root.isEmpty() ? tag : root;
            break;
        case QXmlStreamReader::EndElement:
            tag.clear();
            break;
        case QXmlStreamReader::Characters:
            if (tag == "last-modified")
                info.lastModified = HttpDate::parse(reader.text().toString());
            else if (tag == "expires-at")
                info.expiresAt = reader.text().trimmed().toLongLong();
            else if (tag == "address")
                info.address += reader.text();
            break;
        default:
            break;
        }
    }
    if (reader.hasError() || root != "webcache-info")
        return std::nullopt;
    return info;
}
