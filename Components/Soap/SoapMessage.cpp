#include "SoapMessage.h"

#include <QXmlStreamWriter>

#include <algorithm>

namespace
{

QString const envelopeNamespace = QStringLiteral("http://schemas.xmlsoap.org/soap/envelope/");

/// XML 1.0, production 2, "Char".
bool isWritable(uint character)
{
    return character == '\t' || character == '\n' || character == '\r' || (character >= 0x20 && character < 0xD800) ||
           (character >= 0xE000 && character < 0xFFFE) || (character >= 0x10000 && character <= 0x10FFFF);
}

bool isWritable(SoapValue const& value)
{
    return std::ranges::all_of(value.toString().toUcs4(), [](uint character) { return isWritable(character); }) &&
           value.toString().isValidUtf16() &&
           std::ranges::all_of(value.members(), [](SoapValue const& member) { return isWritable(member); });
}

void write(QXmlStreamWriter& writer, SoapValue const& value)
{
    writer.writeStartElement(value.name());
    writer.writeCharacters(value.toString());
    for (SoapValue const& member : value.members())
        write(writer, member);
    writer.writeEndElement();
}

} // namespace

std::optional<QByteArray> SoapMessage::toXml() const
{
    QByteArray document;
    QXmlStreamWriter writer(&document);
    writer.writeStartDocument();
    writer.writeNamespace(envelopeNamespace, "soap");
    writer.writeNamespace(action(), "m");
    writer.writeStartElement(envelopeNamespace, "Envelope");
    writer.writeStartElement(envelopeNamespace, "Body");
    writer.writeStartElement(action(), _method);
    for (SoapValue const& argument : _arguments) {
        if (!isWritable(argument))
            return std::nullopt;
        write(writer, argument);
    }
    writer.writeEndDocument();
    return document;
}
