#include "ChannelDocumentReader.h"

#include "BoundedXmlReader.h"
#include "ChannelDocumentFields.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <optional>

Logger* ChannelDocumentReader::log = LoggerManager::logger();

/// One reading of a document.
class ChannelDocumentReader::Reading
{
public:
    explicit Reading(QByteArray const& xml) : _xml(xml) { _xml.setNamespaceProcessing(false); }

    Document read()
    {
        while (!_xml.atEnd()) {
            switch (_xml.next()) {
            case QXmlStreamReader::StartElement:
                startElement();
                break;
            case QXmlStreamReader::Characters:
                if (_field && _depth == _channelDepth + 2)
                    _text += _xml.text();
                break;
            case QXmlStreamReader::EndElement:
                endElement();
                break;
            default:
                break;
            }
        }
        if (_xml.hasError())
            return {{}, QString("%1 (line %2)").arg(_xml.errorString()).arg(_xml.lineNumber())};
        return _document;
    }

private:
    void startElement()
    {
        // What stands between the viewer and the service answers with pages of its own; some are good XML.
        if (_depth == 0 && _xml.isNamed(QLatin1String("html")))
            _xml.raiseError(QStringLiteral("It is a web page."));
        if (!_channel) {
            if (_xml.isNamed(QLatin1String("channel"))) {
                _channel.emplace();
                _channelDepth = _depth;
            }
        } else if (_depth == _channelDepth + 1) {
            _field = ChannelDocumentFields::fieldOf(_xml.name());
            _text.clear();
        }
        ++_depth;
    }

    void endElement()
    {
        --_depth;
        if (!_channel)
            return;
        if (_depth == _channelDepth + 1 && _field) {
            _channel->set(*_field, _text);
            _field.reset();
        } else if (_depth == _channelDepth) {
            if (_document.entries.size() < maximumChannels)
                _document.entries.append(_channel->toEntry());
            else
                _xml.raiseError(QStringLiteral("The document has too many channels."));
            _channel.reset();
        }
    }

    BoundedXmlReader _xml;
    Document _document;
    int _depth = 0;                                ///< Of open elements.
    std::optional<ChannelDocumentFields> _channel; ///< The one being read ...
    int _channelDepth = 0;                         ///< ... and the number of elements around it.
    std::optional<ChannelDocumentFields::Field> _field;
    QString _text;
};

ChannelDocumentReader::Document ChannelDocumentReader::read(QByteArray const& xml)
{
    if (xml.size() > maximumBytes)
        return {{}, QStringLiteral("The document is too long.")};
    return Reading(xml).read();
}

QString ChannelDocumentReader::faultOf(QByteArray const& xml)
{
    return read(xml).error;
}
