#include "SoapReply.h"

#include <QCoreApplication>
#include <QXmlStreamReader>

/// Walks through one envelope; each function is left at the end of the element at whose beginning it is called.
class SoapReplyReader
{
    Q_DECLARE_TR_FUNCTIONS(SoapReply)

public:
    SoapReplyReader(QByteArray const& document, QString const& method) : _reader(document), _method(method) {}

    SoapReply read();

private:
    bool nextChild(QString* text = nullptr);
    void readEnvelope();
    void readBody();
    void readResponse();
    void readFault();
    SoapValue readValue();
    void skip() { readValue(); }
    bool isNil() const;

    QXmlStreamReader _reader;
    QString const _method;
    int _depth = 0;
    int _elements = 0;
    SoapReply _reply;
};

SoapReply SoapReplyReader::read()
{
    if (nextChild())
        readEnvelope();
    while (!_reader.atEnd())
        nextChild();
    if (!_reader.hasError() && _reply._isEnvelope)
        return _reply;
    QString reason = _reader.hasError() ? _reader.errorString() : tr("it is no answer to %1").arg(_method);
    if (reason.endsWith('.'))
        reason.chop(1);
    return SoapReply::failure(tr("The answer of the service cannot be read: %1.").arg(reason));
}

/// Goes to the beginning of the next child and says whether there is one; if not, the element has ended. The text on
/// the way is added to the given one.
bool SoapReplyReader::nextChild(QString* text)
{
    while (!_reader.atEnd()) {
        switch (_reader.readNext()) {
        case QXmlStreamReader::DTD:
            _reader.raiseError(tr("it has a document type"));
            return false;
        case QXmlStreamReader::StartElement:
            if (++_depth > SoapReply::maximumDepth || ++_elements > SoapReply::maximumElements) {
                _reader.raiseError(tr("it has too many parts"));
                return false;
            }
            return true;
        case QXmlStreamReader::EndElement:
            --_depth;
            return false;
        case QXmlStreamReader::Characters:
            if (text)
                *text += _reader.text();
            break;
        default:
            break;
        }
    }
    return false;
}

void SoapReplyReader::readEnvelope()
{
    bool const isEnvelope = _reader.name() == QLatin1String("Envelope");
    while (nextChild()) {
        if (isEnvelope && _reader.name() == QLatin1String("Body"))
            readBody();
        else
            skip();
    }
}

void SoapReplyReader::readBody()
{
    while (nextChild()) {
        if (_reply._isEnvelope)
            skip();
        else if (_reader.name() == QLatin1String("Fault"))
            readFault();
        else if (_reader.name() == QString(_method + "Response"))
            readResponse();
        else
            skip();
    }
}

void SoapReplyReader::readResponse()
{
    _reply._isEnvelope = true;
    bool isFirst = true;
    while (nextChild()) {
        SoapValue const value = readValue();
        if (isFirst)
            _reply._returnValue = value;
        isFirst = false;
    }
}

void SoapReplyReader::readFault()
{
    _reply._isEnvelope = true;
    _reply._isFault = true;
    SoapValue const fault = readValue();
    QString const text = fault.member("faultstring").toString().trimmed();
    _reply._faultString = text.isEmpty() ? fault.member("faultcode").toString().trimmed() : text;
    if (_reply._faultString.isEmpty())
        _reply._faultString = tr("The service reports a fault and does not say which.");
}

/// Calls itself for the members, as deep as maximumDepth at most.
SoapValue SoapReplyReader::readValue()
{
    QString const name = _reader.name().toString();
    bool const isNull = isNil();
    QString text;
    QList<SoapValue> members;
    while (nextChild(&text))
        if (SoapValue const member = readValue(); member.isValid())
            members.append(member);
    if (isNull)
        return {};
    return members.isEmpty() ? SoapValue(name, text) : SoapValue(name, members);
}

/// XML Schema, "xsi:nil".
bool SoapReplyReader::isNil() const
{
    for (QXmlStreamAttribute const& attribute : _reader.attributes())
        if (attribute.name() == QLatin1String("nil"))
            return attribute.value() == QLatin1String("true") || attribute.value() == QLatin1String("1");
    return false;
}

SoapReply SoapReply::read(QByteArray const& document, QString const& method)
{
    return SoapReplyReader(document, method).read();
}

SoapReply SoapReply::failure(QString const& text)
{
    SoapReply reply;
    reply._isFault = true;
    reply._faultString = text;
    return reply;
}
