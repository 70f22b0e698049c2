#include "OwnChannels.h"

#include "FileName.h"
#include "ResourceImage.h"
#include "Uri.h"

#include <QFileInfo>
#include <QImage>
#include <QRegularExpression>

namespace OwnChannels
{

StreamDescription streamWithBothTracks(Uri const& uri)
{
    StreamDescription stream(uri);
    TrackDescription track;
    track.setLanguageId(LanguageId::English());
    track.setTrackType(TrackDescription::AudioTrack);
    stream.appendTrackDescription(track);
    track.setTrackType(TrackDescription::VideoTrack);
    stream.appendTrackDescription(track);
    return stream;
}

namespace
{

ChannelDescription channelOf(QString const& rootId, QString const& title, ChannelDescription::ChannelType type,
                             Uri const& uri)
{
    ChannelDescription description;
    description.setId(rootId);
    description.setRootId(rootId);
    description.setTitle(title);
    description.setLogo(ResourceImage::png(":/Resources/latte_en.png"));
    description.setChannelType(type);
    description.setChannelMediaTypes(ChannelDescription::AudioMedia | ChannelDescription::VideoMedia);
    description.setHasChat(false);
    description.setHasAlerts(false);
    description.appendStreamDescription(streamWithBothTracks(uri));
    return description;
}

} // namespace

bool isAddress(QString const& text)
{
    static QRegularExpression const shape(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*://."));
    return shape.match(text).hasMatch();
}

QString channelIdFromFileName(QString const& name)
{
    return QString::fromLatin1(name.toUtf8().toHex());
}

bool hasSecret(QString const& rootId)
{
    if (!rootId.startsWith("latte_") && !rootId.startsWith("file_"))
        return false;
    qsizetype const begin = rootId.indexOf('_') + 1; // Of the hexadecimal digits.
    QString const name = QString::fromUtf8(QByteArray::fromHex(rootId.mid(begin).toLatin1()));
    return Uri::withoutUserInfo(name) != name;
}

ChannelDescription describeStream(QString const& url, QString const& title)
{
    return channelOf("latte_" + channelIdFromFileName(url), title, ChannelDescription::UserStreamChannel, Uri(url));
}

ChannelDescription describeFile(QString const& path)
{
    QString const name = FileName::fromAddress(path);
    QString const absolute = FileName::isAddress(name) ? name : QFileInfo(name).absoluteFilePath();
    return channelOf("file_" + channelIdFromFileName(absolute), FileName::title(absolute),
                     ChannelDescription::FileChannel, Uri(FileName::toAddress(absolute)));
}

} // namespace OwnChannels
