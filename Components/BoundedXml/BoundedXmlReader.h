#pragma once

#include <QXmlStreamReader>

/// A QXmlStreamReader for bytes from outside: a document type, and with it entities, and nesting deeper than
/// maximumDepth are errors of the document.
class BoundedXmlReader : public QXmlStreamReader
{
public:
    static constexpr int maximumDepth = 32;

    using QXmlStreamReader::QXmlStreamReader;

    /// As QXmlStreamReader::readNext(), within the bounds.
    TokenType next();

    /// Whether the element at hand has this name, in whatever case. The name is given in lower case.
    bool isNamed(QLatin1String name) const { return this->name().compare(name, Qt::CaseInsensitive) == 0; }

private:
    int _depth = 0;
};
