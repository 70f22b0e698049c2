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

ChannelDescription::ChannelDescription()
{
    static QSharedDataPointer<Data> const defaults(new Data);
    _data = defaults;
}

bool ChannelDescription::isNull() const
{
    return *this == Null();
}

QString ChannelDescription::toLine(QString const& text)
{
    constexpr char16_t firstEmbedding = 0x202A;
    constexpr char16_t lastOverride = 0x202E;
    constexpr char16_t firstIsolate = 0x2066;
    constexpr char16_t lastIsolate = 0x2069;
    QString line = text;
    line.removeIf([](QChar character) {
        return (character >= firstEmbedding && character <= lastOverride) ||
               (character >= firstIsolate && character <= lastIsolate);
    });
    for (QChar& character : line)
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = ' ';
    return line;
}

void ChannelDescription::setLogo(ChannelLogo const& logo)
{
    _data->logo = logo;
    _data->logoLoaded = true;
}

void ChannelDescription::removeStreamDescription(StreamDescription const& stream)
{
    _data->streamDescriptions.removeIf([&stream](StreamDescription const& candidate) { return candidate == stream; });
}

int ChannelDescription::numAudioTracks() const
{
    return sumOf(_data->streamDescriptions, &StreamDescription::numAudioTracks);
}

int ChannelDescription::numVideoTracks() const
{
    return sumOf(_data->streamDescriptions, &StreamDescription::numVideoTracks);
}

int ChannelDescription::numSubtitleTracks() const
{
    return sumOf(_data->streamDescriptions, &StreamDescription::numSubtitleTracks);
}

QSet<LanguageId> ChannelDescription::audioLanguages() const
{
    return unionOf(_data->streamDescriptions, &StreamDescription::audioLanguages);
}

QSet<LanguageId> ChannelDescription::videoLanguages() const
{
    return unionOf(_data->streamDescriptions, &StreamDescription::videoLanguages);
}

QSet<LanguageId> ChannelDescription::subtitleLanguages() const
{
    return unionOf(_data->streamDescriptions, &StreamDescription::subtitleLanguages);
}

QString ChannelDescription::toString() const
{
    QStringList streams;
    for (StreamDescription const& stream : _data->streamDescriptions)
        streams.append(stream.uri().toString());
    QString const availability =
        _data->available ? QStringLiteral(" ") : QString("X (" + _data->unavailableReason + ")");
    return (_data->favourite ? "F" : " ") + availability + _data->title + " '" + _data->summary + "' " + _data->id +
           " [" + streams.join(", ") + "]";
}

bool ChannelDescription::operator==(ChannelDescription const& other) const
{
    auto const compared = [](Data const& d) {
        return std::tie(d.id, d.rootId, d.title, d.summary, d.website, d.websiteLabel, d.hasAlerts, d.hasChat,
                        d.chatRoomName, d.alertsTopic, d.logo, d.logoLoaded, d.available, d.unavailableReason,
                        d.favourite, d.viewerAdded, d.channelType, d.channelMediaTypes, d.autoBuzzEnabled,
                        d.repeatedAutoBuzz, d.autoBuzzInterval, d.streamDescriptions);
    };
    return _data == other._data || compared(*_data) == compared(*other._data);
}
