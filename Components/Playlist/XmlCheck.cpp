#include "XmlCheck.h"

#include <QXmlStreamReader>

QString XmlCheck::faultOf(QString const& document)
{
    QXmlStreamReader reader(document);
    reader.setNamespaceProcessing(false);
    int depth = 0;
    int elements = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            return QStringLiteral("it has a document type");
        case QXmlStreamReader::StartElement:
            if (++depth > maximumDepth)
                return QStringLiteral("it is nested too deep");
            if (++elements > maximumElements || reader.attributes().size() > maximumAttributes)
                return QStringLiteral("it has too many parts");
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
    }
    return reader.hasError() ? reader.errorString() : QString();
}
