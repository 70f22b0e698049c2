#include "ChannelDescription.h"

#include <QStringList>

#include <tuple>

namespace
{

[[maybe_unused]] int const metaTypeId = qRegisterMetaType<ChannelDescription>("ChannelDescription");

int sumOf(QList<StreamDescription> const& streams, int (StreamDescription::*count)() const)
{
    int sum = 0;
    for (StreamDescription const& stream : streams)
        sum += (stream.*count)();
    return sum;
}

QSet<LanguageId> unionOf(QList<StreamDescription> const& streams,
                         QSet<LanguageId> (StreamDescription::*languages)() const)
{
    QSet<LanguageId> all;
    for (StreamDescription const& stream : streams)
        all.unite((stream.*languages)());
    return all;
}

} // namespace

bool ChannelDescription::isNull() const
{
    return *this == Null();
}

void ChannelDescription::setLogo(QImage const& logo)
{
    _logo = logo;
    _logoLoaded = true;
}

void ChannelDescription::removeStreamDescription(StreamDescription const& stream)
{
    _streamDescriptions.removeIf([&stream](StreamDescription const& candidate) { return candidate == stream; });
}

int ChannelDescription::numAudioTracks() const
{
    return sumOf(_streamDescriptions, &StreamDescription::numAudioTracks);
}

int ChannelDescription::numVideoTracks() const
{
    return sumOf(_streamDescriptions, &StreamDescription::numVideoTracks);
}

int ChannelDescription::numSubtitleTracks() const
{
    return sumOf(_streamDescriptions, &StreamDescription::numSubtitleTracks);
}

QSet<LanguageId> ChannelDescription::audioLanguages() const
{
    return unionOf(_streamDescriptions, &StreamDescription::audioLanguages);
}

QSet<LanguageId> ChannelDescription::videoLanguages() const
{
    return unionOf(_streamDescriptions, &StreamDescription::videoLanguages);
}

QSet<LanguageId> ChannelDescription::subtitleLanguages() const
{
    return unionOf(_streamDescriptions, &StreamDescription::subtitleLanguages);
}

QString ChannelDescription::toString() const
{
    QStringList streams;
    for (StreamDescription const& stream : _streamDescriptions)
        streams.append(stream.uri().toString());
    QString const availability = _available ? QStringLiteral(" ") : QString("X (" + _unavailableReason + ")");
    return (_favourite ? "F" : " ") + availability + _title + " '" + _summary + "' " + _id + " [" +
           streams.join(", ") + "]";
}

bool ChannelDescription::operator==(ChannelDescription const& other) const
{
    auto const compared = [](ChannelDescription const& d) {
        return std::tie(d._id, d._rootId, d._title, d._summary, d._website, d._websiteLabel, d._hasAlerts, d._hasChat,
                        d._chatRoomName, d._alertsTopic, d._logo, d._logoLoaded, d._available, d._unavailableReason,
                        d._favourite, d._channelType, d._channelMediaTypes, d._autoBuzzEnabled, d._repeatedAutoBuzz,
                        d._autoBuzzInterval, d._streamDescriptions);
    };
    return compared(*this) == compared(other);
}
