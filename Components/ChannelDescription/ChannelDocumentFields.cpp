#include "ChannelDocumentFields.h"

#include "ChannelTracks.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QLatin1String>
#include <algorithm>
#include <stdexcept>

namespace
{

using Fields = ChannelDocumentFields;

/// In the order of Field.
std::array<QLatin1String, Fields::FieldCount> const names{
    QLatin1String("name"),
    QLatin1String("unique-short-name"),
    QLatin1String("description"),
    QLatin1String("website-url"),
    QLatin1String("link-text"),
    QLatin1String("logo-url"),
    QLatin1String("has-alerts"),
    QLatin1String("has-chat"),
    QLatin1String("show-banners"),
    QLatin1String("chatroom-name"),
    QLatin1String("alerts-topic"),
    QLatin1String("autobuzz-enabled"),
    QLatin1String("repeated-autobuzz"),
    QLatin1String("autobuzz-interval"),
    QLatin1String("channel-type"),
    QLatin1String("latte-uri"),
    QLatin1String("streaming-url"),
    QLatin1String("additional-latte-uri"),
    QLatin1String("media-profile"),
    QLatin1String("key"),
    QLatin1String("provider"),
    QLatin1String("profile"),
    QLatin1String("fingerprint"),
    QLatin1String("unavailable-reason"),
    QLatin1String("purchase-url"),
    QLatin1String("viewer-added"),
};

QStringList const streamSchemes{"http",  "https", "mms",   "mmsh", "mmst", "mmsu", "rtsp",
                                "rtsps", "rtmp",  "rtmps", "rtp",  "udp",  "srt"};
QStringList const webSchemes{"http", "https"};

bool isTrue(QString const& text)
{
    return text == QLatin1String("1") || text == QLatin1String("true");
}

} // namespace

Logger* ChannelDocumentFields::log = LoggerManager::logger();

std::optional<ChannelDocumentFields::Field> ChannelDocumentFields::fieldOf(QStringView name)
{
    for (int i = 0; i < FieldCount; ++i)
        if (name.size() == names[i].size() && name.compare(names[i], Qt::CaseInsensitive) == 0)
            return static_cast<Field>(i);
    return std::nullopt;
}

void ChannelDocumentFields::set(Field field, QString const& text)
{
    if (std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c.isSpace(); }))
        return;
    if (field == AdditionalLatteUri)
        _additionalUris.append(text);
    else
        _texts[field] = text;
}

ChannelDocumentReader::Entry ChannelDocumentFields::toEntry() const
{
    ChannelDescription channel;
    channel.setId(at(UniqueShortName));
    channel.setRootId(at(UniqueShortName));
    channel.setTitle(at(Name));
    channel.setSummary(at(Description));
    channel.setWebsite(at(WebsiteUrl));
    channel.setWebsiteLabel(at(LinkText));
    channel.setChatRoomName(at(ChatroomName));
    channel.setAlertsTopic(at(AlertsTopic));
    channel.setPurchaseUrl(at(PurchaseUrl));
    if (!at(UnavailableReason).isEmpty()) {
        channel.setAvailable(false);
        channel.setUnavailableReason(at(UnavailableReason));
    }
    setFlags(channel);
    setType(channel);
    appendStreams(channel);
    return {channel, at(LogoUrl).isEmpty() ? Uri() : networkUri(at(LogoUrl), webSchemes)};
}

void ChannelDocumentFields::setFlags(ChannelDescription& channel) const
{
    // What is not said stays as it is with every channel.
    if (!at(HasAlerts).isEmpty())
        channel.setHasAlerts(isTrue(at(HasAlerts)));
    if (!at(HasChat).isEmpty())
        channel.setHasChat(isTrue(at(HasChat)));
    if (!at(ShowBanners).isEmpty())
        channel.setShowBanners(isTrue(at(ShowBanners)));
    channel.setAutoBuzzEnabled(at(AutobuzzEnabled) == QLatin1String("true"));
    channel.setRepeatedAutoBuzz(at(RepeatedAutobuzz) == QLatin1String("true"));
    if (int const interval = at(AutobuzzInterval).toInt(); interval > 0)
        channel.setAutoBuzzInterval(interval);
}

void ChannelDocumentFields::setType(ChannelDescription& channel) const
{
    using Channel = ChannelDescription;
    bool const isRadio = at(ChannelType) == QLatin1String("RADIO");
    bool const isPublic = isRadio || at(ChannelType) == QLatin1String("TV");
    if (isTrue(at(ViewerAdded)))
        channel.setChannelType(Channel::UserChannel);
    else if (!at(PurchaseUrl).isEmpty())
        channel.setChannelType(Channel::PayPerViewChannel);
    else
        channel.setChannelType(isPublic ? Channel::PublicChannel : Channel::SecureChannel);
    channel.setViewerAdded(channel.channelType() == Channel::UserChannel);
    channel.setChannelMediaTypes(isRadio ? Channel::AudioMedia : Channel::AudioMedia | Channel::VideoMedia);
}

void ChannelDocumentFields::appendStreams(ChannelDescription& channel) const
{
    StreamDescription stream;
    ChannelTracks::append(stream, channel.channelMediaTypes(), LanguageId::English());
    stream.setDescriptor(at(MediaProfile).toUtf8());
    stream.setSecure(!at(Key).isEmpty());
    stream.setKey(at(Key));
    stream.setProvider(at(Provider));
    stream.setProfile(at(Profile));
    stream.setFingerprint(at(Fingerprint));
    if (QString const& uri = at(LatteUri).isEmpty() ? at(StreamingUrl) : at(LatteUri); !uri.isEmpty())
        stream.setUri(networkUri(uri, streamSchemes));
    channel.appendStreamDescription(stream);
    for (QString const& uri : _additionalUris.first(
             std::min<qsizetype>(_additionalUris.size(), ChannelDocumentReader::maximumStreams - 1))) {
        stream.setUri(networkUri(uri, streamSchemes));
        if (!stream.uri().isNull())
            channel.appendStreamDescription(stream);
    }
}

/// The null address, with a word in the log, for what is no address or of none of these schemes.
Uri ChannelDocumentFields::networkUri(QString const& text, QStringList const& schemes) const
{
    try {
        Uri const uri(text);
        if (schemes.contains(uri.scheme().toString()))
            return uri;
    } catch (std::invalid_argument const&) {
        // Told below.
    }
    LOG_WARNING("The channel %s has an address that is none of the network: \"%s\".", qPrintable(at(UniqueShortName)),
                qPrintable(text));
    return {};
}

bool ChannelDocumentFields::isStreamAddress(QString const& text)
{
    try {
        return streamSchemes.contains(Uri(text).scheme().toString());
    } catch (std::invalid_argument const&) {
        return false;
    }
}
