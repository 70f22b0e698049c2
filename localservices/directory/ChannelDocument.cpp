#include "ChannelDocument.h"

#include "ServicePlaces.h"

#include <QXmlStreamWriter>

namespace
{
void writeChannel(QXmlStreamWriter& xml, DirectoryChannel const& channel, ServicePlaces const& places,
                  WebRequest const& request)
{
    auto const write = [&](QString const& element, QString const& text) {
        if (!text.isEmpty())
            xml.writeTextElement(element, text);
    };
    xml.writeStartElement(QStringLiteral("channel"));
    write(QStringLiteral("unique-short-name"), channel.id);
    for (ChannelField const& field : ChannelField::all()) {
        if (!field.element)
            continue;
        QString const text = channel.field(field.name);
        write(QString::fromLatin1(field.element),
              field.kind == ChannelField::Kind::Address ? places.resolve(text, request) : text);
    }
    write(QStringLiteral("logo-url"), places.logoOf(channel, request));
    for (qsizetype i = 0; i < channel.uris.size(); ++i)
        write(i == 0 ? QStringLiteral("latte-uri") : QStringLiteral("additional-latte-uri"),
              places.resolve(channel.uris.at(i), request));
    if (channel.owner != 0)
        write(QStringLiteral("viewer-added"), QStringLiteral("true"));
    xml.writeEndElement();
}
} // namespace

QByteArray ChannelDocument::write(QList<DirectoryChannel> const& channels, ServicePlaces const& places,
                                  WebRequest const& request)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("channels"));
    for (DirectoryChannel const& channel : channels)
        writeChannel(xml, channel, places, request);
    xml.writeEndDocument();
    return bytes;
}
