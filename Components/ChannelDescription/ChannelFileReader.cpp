#include "ChannelFileReader.h"

#include "BoundedXmlReader.h"
#include "ChannelTracks.h"
#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QDir>

#include <optional>
#include <stdexcept>

namespace
{

LanguageId languageOf(QString const& id)
{
    if (id.endsWith("_fr"))
        return LanguageId::French();
    if (id.endsWith("_it"))
        return LanguageId::Italian();
    return LanguageId::English();
}

void setType(ChannelDescription& channel, QString const& type)
{
    using Channel = ChannelDescription;
    bool const isRadio = type == "radio";
    channel.setChannelMediaTypes(isRadio ? Channel::AudioMedia : Channel::AudioMedia | Channel::VideoMedia);
    if (type == "file")
        channel.setChannelType(Channel::FileChannel);
    else
        channel.setChannelType(isRadio || type == "tv" ? Channel::PublicChannel : Channel::SecureChannel);
}

} // namespace

Logger* ChannelFileReader::log = LoggerManager::logger();

/// One reading of a file.
class ChannelFileReader::Reading
{
public:
    Reading(QByteArray const& xml, QString const& directory) : _xml(xml), _directory(directory) {}

    Result read()
    {
        while (!_xml.atEnd()) {
            switch (_xml.next()) {
            case QXmlStreamReader::StartElement:
                startElement();
                break;
            case QXmlStreamReader::Characters:
                if (_isInDescription)
                    _summary += _xml.text();
                break;
            case QXmlStreamReader::EndElement:
                endElement();
                break;
            default:
                break;
            }
        }
        if (_xml.hasError())
            _result.error = QString("%1 (line %2)").arg(_xml.errorString()).arg(_xml.lineNumber());
        return _result;
    }

private:
    void startElement()
    {
        _result.hasBegun = true;
        if (!_channel && _xml.isNamed(QLatin1String("channel")))
            startChannel();
        else if (_channel && _depth == _channelDepth + 1)
            _isInDescription = _xml.isNamed(QLatin1String("description"));
        ++_depth;
    }

    void startChannel()
    {
        LOG_DEBUG("Reading channel.");
        QXmlStreamAttributes const attributes = _xml.attributes();
        QString const id = attributes.value("id").toString();
        _channel.emplace();
        _channel->setTitle(attributes.value("name").toString());
        _channel->setId(id);
        _channel->setRootId(id);
        setType(*_channel, attributes.value("type").toString().toLower());
        addStream(attributes, languageOf(id));
        _channelDepth = _depth;
        _summary.clear();
    }

    void addStream(QXmlStreamAttributes const& attributes, LanguageId const& language)
    {
        StreamDescription stream;
        ChannelTracks::append(stream, _channel->channelMediaTypes(), language);
        for (TrackDescription const& track : stream.trackDescriptions()) {
            bool const isVideo = track.trackType() == TrackDescription::VideoTrack;
            if (isVideo)
                LOG_DEBUG("Adding %s video track...", qPrintable(language.toIso639_3()));
            else
                LOG_DEBUG("Adding %s audio track...", qPrintable(language.toIso639_3()));
        }
        if (attributes.hasAttribute("url")) {
            QString const url = attributes.value("url").toString();
            LOG_DEBUG("Adding stream at %s...", qPrintable(url));
            setUri(stream, url);
        } else {
            LOG_DEBUG("Adding stream with no URI.");
        }
        _channel->appendStreamDescription(stream);
    }

    void setUri(StreamDescription& stream, QString const& text)
    {
        constexpr int prefix = 7; // "file://"
        try {
            Uri uri(text);
            if (uri.scheme() == UriScheme(QStringLiteral("file")))
                uri = Uri(FileName::toAddress(_directory + QDir::separator() + uri.toString().mid(prefix)));
            stream.setUri(uri);
            LOG_DEBUG("Set stream URI.");
        } catch (std::invalid_argument const&) {
            LOG_WARNING("The channel %s has no address that could be opened: \"%s\".", qPrintable(_channel->id()),
                        qPrintable(text));
        }
    }

    void endElement()
    {
        --_depth;
        if (_isInDescription && _depth == _channelDepth + 1) {
            _isInDescription = false;
            if (!_summary.trimmed().isEmpty()) {
                _channel->setSummary(_summary);
                LOG_DEBUG("Read description.");
            }
        }
        if (!_channel || _depth != _channelDepth)
            return;
        if (_result.channels.size() < maximumChannels)
            _result.channels.append(*_channel);
        else
            _xml.raiseError(QStringLiteral("The file has too many channels."));
        _channel.reset();
    }

    BoundedXmlReader _xml;
    QString const& _directory;
    Result _result;
    int _depth = 0;                             ///< Of open elements.
    std::optional<ChannelDescription> _channel; ///< The one being read ...
    int _channelDepth = 0;                      ///< ... and the number of elements around it.
    bool _isInDescription = false;
    QString _summary;
};

ChannelFileReader::Result ChannelFileReader::read(QByteArray const& xml, QString const& directory)
{
    return Reading(xml, directory).read();
}
