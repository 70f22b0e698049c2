#include "ApiCall.h"

#include "ApiNames.h"

#include <QXmlStreamReader>

namespace
{
/// Reads one envelope. What is wrong ends up as an error of the XML reader.
class Reading
{
public:
    explicit Reading(QByteArray const& xml) : _xml(xml) {}

    std::optional<ApiCall> read(QString& error)
    {
        readEnvelope();
        if (!_xml.hasError() && _call.method.isEmpty())
            _xml.raiseError(QStringLiteral("There is no method in the body."));
        while (!_xml.atEnd())
            next();
        if (!_xml.hasError())
            return _call;
        error = _xml.errorString();
        return std::nullopt;
    }

private:
    void next()
    {
        _xml.readNext();
        if (_xml.tokenType() == QXmlStreamReader::DTD)
            _xml.raiseError(QStringLiteral("A document type is not allowed."));
        _depth += _xml.isStartElement() ? 1 : _xml.isEndElement() ? -1 : 0;
        if (_depth > ApiCall::maximumDepth)
            _xml.raiseError(QStringLiteral("The elements are nested too deeply."));
    }

    /// The next element inside the open one; false at its end.
    bool nextChild()
    {
        do
            next();
        while (!_xml.atEnd() && !_xml.isStartElement() && !_xml.isEndElement());
        return _xml.isStartElement();
    }

    void skip()
    {
        for (int const outside = _depth - 1; _depth > outside && !_xml.atEnd();)
            next();
    }

    bool isEnvelope(char const* name) const
    {
        return _xml.name() == QLatin1String(name) && _xml.namespaceUri() == QLatin1String(ApiNames::envelope);
    }

    void readEnvelope()
    {
        if (!nextChild() || _xml.name() != QLatin1String("Envelope"))
            return _xml.raiseError(QStringLiteral("This is no envelope of SOAP."));
        if (!isEnvelope("Envelope"))
            return _xml.raiseError(QString::fromLatin1(ApiNames::otherVersion));
        while (nextChild()) {
            if (isEnvelope("Body"))
                readBody();
            else
                skip();
        }
    }

    void readBody()
    {
        while (nextChild()) {
            QString const method = _xml.name().toString();
            if (!_call.method.isEmpty())
                return _xml.raiseError(QStringLiteral("There is more than one method in the body."));
            if (_xml.namespaceUri() != QString("urn:" + method))
                return _xml.raiseError(QStringLiteral("The method is not in the namespace urn:%1.").arg(method));
            _call.method = method;
            while (nextChild())
                readArgument();
        }
    }

    void readArgument()
    {
        QString const name = _xml.name().toString();
        QString text;
        for (next(); !_xml.atEnd() && !_xml.isEndElement(); next()) {
            if (_xml.isStartElement())
                return _xml.raiseError(QStringLiteral("The argument %1 is no simple text.").arg(name));
            if (_xml.isCharacters())
                text += _xml.text();
            if (text.size() > ApiCall::longestArgument)
                return _xml.raiseError(QStringLiteral("The argument %1 is too long.").arg(name));
        }
        if (_call.arguments.size() >= ApiCall::maximumArguments)
            return _xml.raiseError(QStringLiteral("There are too many arguments."));
        _call.arguments.insert(name, text);
    }

    QXmlStreamReader _xml;
    int _depth = 0;
    ApiCall _call;
};
} // namespace

std::optional<ApiCall> ApiCall::read(QByteArray const& xml, QString& error)
{
    return Reading(xml).read(error);
}
