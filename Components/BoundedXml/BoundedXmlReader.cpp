#include "BoundedXmlReader.h"

QXmlStreamReader::TokenType BoundedXmlReader::next()
{
    switch (readNext()) {
    case DTD:
        raiseError(QStringLiteral("The document has a document type."));
        break;
    case StartElement:
        if (++_depth > maximumDepth)
            raiseError(QStringLiteral("The document is nested too deep."));
        break;
    case EndElement:
        --_depth;
        break;
    default:
        break;
    }
    return hasError() ? Invalid : tokenType();
}
