#include "ChannelStats.h"

#include "BoundedXmlReader.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QXmlStreamWriter>

Logger* ChannelStats::log = LoggerManager::logger();

/// One reading of a document. A text belongs to the tag that was opened last; a channel is complete when the next one
/// begins, or the document ends.
class ChannelStats::Reading
{
public:
    Reading(QString const& xml, ChannelStats& stats) : _xml(xml), _stats(stats) {}

    void read()
    {
        while (!_xml.atEnd()) {
            QXmlStreamReader::TokenType const token = _xml.next();
            if (token == QXmlStreamReader::StartElement)
                startElement();
            else if (token == QXmlStreamReader::Characters && !_xml.isWhitespace())
                readText(_xml.text());
        }
        storeChannel();
    }

private:
    void startElement()
    {
        _tag = _xml.name().toString().toLower();
        if (_tag != "channel")
            return;
        LOG_DEBUG("Found channel tag");
        storeChannel();
    }

    void readText(QStringView text)
    {
        if (_tag == "ms") {
            _stats._ms = text.toInt();
            LOG_DEBUG("Found ms tag: %d", _stats._ms);
        } else if (_tag == "channelid") {
            _id = text.toString();
            LOG_DEBUG("Found channelId tag: %s", qPrintable(_id));
        } else if (_tag == "viewers") {
            _viewers = text.toInt();
            LOG_DEBUG("Found viewers tag: %d", _viewers);
        }
    }

    void storeChannel()
    {
        if (!_id.isEmpty()) {
            LOG_DEBUG("Adding channel: %s %d", qPrintable(_id), _viewers);
            _stats.setChannelDetails(_id, _viewers);
        }
        _id.clear();
        _viewers = 0;
    }

    BoundedXmlReader _xml;
    ChannelStats& _stats;
    QString _tag; ///< In lower case.
    QString _id;
    int _viewers = 0;
};

ChannelStats::ChannelStats(QObject* parent) : QObject(parent) {}

ChannelStats::ChannelStats(QString const& xml, QObject* parent) : QObject(parent)
{
    Reading(xml, *this).read();
}

QString ChannelStats::toXml() const
{
    QString text;
    QXmlStreamWriter xml(&text);
    xml.writeStartDocument();
    xml.writeStartElement("channels");
    xml.writeTextElement("ms", QString::number(_ms));
    for (auto channel = _viewers.cbegin(); channel != _viewers.cend(); ++channel) {
        xml.writeStartElement("channel");
        xml.writeTextElement("channelId", channel.key());
        xml.writeTextElement("viewers", QString::number(channel.value()));
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return text;
}
