#include "ApiValue.h"

#include "ApiNames.h"

#include <QXmlStreamWriter>

namespace
{
QString writable(QString text)
{
    text.removeIf([](QChar c) { return (c < u' ' && c != u'\n' && c != u'\t') || c == u'\uFFFE' || c == u'\uFFFF'; });
    // Halves of a character that have lost the other one.
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            ++i;
        else if (text.at(i).isSurrogate())
            text[i] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

void write(QXmlStreamWriter& xml, QString const& name, ApiValue const& value)
{
    xml.writeStartElement(name);
    if (value.members().isEmpty())
        xml.writeCharacters(writable(value.text()));
    for (auto const& [key, member] : value.members())
        write(xml, key, member);
    xml.writeEndElement();
}

template<typename Content>
QByteArray inEnvelope(Content const& content)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    QString const envelope = QString::fromLatin1(ApiNames::envelope);
    xml.writeStartDocument();
    xml.writeNamespace(envelope, QStringLiteral("soap"));
    xml.writeStartElement(envelope, QStringLiteral("Envelope"));
    xml.writeStartElement(envelope, QStringLiteral("Body"));
    content(xml);
    xml.writeEndDocument();
    return bytes;
}
} // namespace

ApiValue ApiValue::listOf(QStringList const& texts)
{
    ApiValue list;
    for (QString const& text : texts)
        list.addItem(text);
    return list;
}

QByteArray ApiValue::reply(QString const& method, ApiValue const& value)
{
    return inEnvelope([&](QXmlStreamWriter& xml) {
        xml.writeNamespace("urn:" + method, QStringLiteral("m"));
        xml.writeStartElement("urn:" + method, method + "Response");
        write(xml, QStringLiteral("return"), value);
        xml.writeEndElement();
    });
}

QByteArray ApiValue::fault(QString const& code, QString const& text)
{
    return inEnvelope([&](QXmlStreamWriter& xml) {
        xml.writeStartElement(QString::fromLatin1(ApiNames::envelope), QStringLiteral("Fault"));
        xml.writeTextElement(QStringLiteral("faultcode"), "soap:" + code);
        xml.writeTextElement(QStringLiteral("faultstring"), writable(text));
        xml.writeEndElement();
    });
}
