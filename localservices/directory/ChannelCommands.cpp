#include "ChannelCommands.h"

#include "Accounts.h"
#include "Directory.h"

#include <QUuid>

QStringList ChannelCommands::help()
{
    return {
        QStringLiteral("channel list             partners' channels, and which one viewers begin with"),
        QStringLiteral("channel show ID          all that is known of one"),
        QStringLiteral("channel add ID TYPE URI NAME"),
        QStringLiteral("                         a new one; TYPE is TV, RADIO or another word, URI an address or"),
        QStringLiteral(
            "                         {mms-http}/NAME, {mms-tcp}/NAME, {web}/hls/NAME/live.m3u8, {rtsp}/NAME"),
        QStringLiteral("channel set ID FIELD [CONTENT]"),
        QStringLiteral(
            "                         \"channel show\" lists the fields; a \"key\" makes its streams secure"),
        QStringLiteral("channel streams ID URI ...  its streams"),
        QStringLiteral("channel default ID       viewers begin with it"),
        QStringLiteral("channel remove ID"),
        QStringLiteral("stream list, stream show ID, stream set ID FIELD [CONTENT], stream streams ID URI ..., "
                       "stream remove ID"),
        QStringLiteral("                         the same for what viewers have made"),
        QStringLiteral("stream add EMAIL URI NAME"),
    };
}

QString ChannelCommands::channel(QStringList const& words, QStringList& lines)
{
    if (words.value(0) == "default")
        return _directory.setDefaultChannel(words.value(1));
    if (words.value(0) != "add")
        return run(words, false, lines);
    DirectoryChannel channel;
    channel.id = words.value(1);
    channel.uris = words.mid(3, 1);
    channel.fields = {{"channel_type", words.value(2)}, {"name", words.mid(4).join(' ')}};
    if (!_directory.find(channel.id).isNull())
        return QStringLiteral("there is a channel %1").arg(channel.id);
    return _directory.put(channel);
}

QString ChannelCommands::stream(QStringList const& words, QStringList& lines)
{
    if (words.value(0) != "add")
        return run(words, true, lines);
    DirectoryChannel channel;
    channel.id = "v" + QUuid::createUuid().toString(QUuid::Id128);
    channel.owner = _accounts.find(words.value(1)).id;
    channel.uris = words.mid(2, 1);
    channel.fields = {{"name", words.mid(3).join(' ')}};
    if (channel.owner == 0)
        return QStringLiteral("there is no account %1").arg(words.value(1));
    QString error = _directory.put(channel);
    if (error.isEmpty())
        error = _directory.setAdded(channel.owner, channel.id, true);
    if (error.isEmpty())
        lines.append(channel.id);
    return error;
}

QString ChannelCommands::run(QStringList const& words, bool isViewers, QStringList& lines)
{
    QString const what = words.value(0);
    if (what == "list")
        return list(isViewers, lines), QString();
    DirectoryChannel const channel = _directory.find(words.value(1));
    if (channel.isNull() || (channel.owner != 0) != isViewers)
        return QStringLiteral("\"%1 %2\": there is no such command, or no such channel").arg(what, words.value(1));
    return change(what, words, channel, lines);
}

QString ChannelCommands::change(QString const& what, QStringList const& words, DirectoryChannel channel,
                                QStringList& lines)
{
    if (what == "show")
        return show(channel, lines), QString();
    if (what == "remove")
        return _directory.remove(channel.id) ? QString() : QStringLiteral("it could not be removed");
    if (what == "streams" && words.size() > 2) {
        channel.uris = words.mid(2);
        return _directory.put(channel);
    }
    if (what != "set" || words.size() < 3)
        return QStringLiteral("\"%1\" is no command for a channel; \"help\" lists them").arg(words.join(' '));
    channel.fields.insert(words.at(2), words.mid(3).join(' '));
    if (words.size() == 3 && ChannelField::find(words.at(2)))
        channel.fields.remove(words.at(2)); // As it was in the beginning.
    return _directory.put(channel);
}

void ChannelCommands::list(bool isViewers, QStringList& lines) const
{
    for (DirectoryChannel const& channel : _directory.all()) {
        if ((channel.owner != 0) == isViewers)
            lines.append(
                QStringLiteral("%1 %2: %3%4")
                    .arg(channel.id, channel.field("name"), channel.uris.join(' '),
                         channel.id == _directory.defaultChannel() ? QStringLiteral(" (default)") : QString()));
    }
}

void ChannelCommands::show(DirectoryChannel const& channel, QStringList& lines)
{
    for (ChannelField const& field : ChannelField::all())
        lines.append(QString::fromLatin1(field.name) + ' ' + channel.field(field.name));
    for (QString const& uri : channel.uris)
        lines.append("stream " + uri);
}
