#include "Seeds.h"

#include "Accounts.h"
#include "Database.h"
#include "Directory.h"

#include <QRandomGenerator>

#include <array>

namespace
{
/// Streams of these names are kept for what they tell.
QString const vault = QStringLiteral("/vault");
QString const cinema = QStringLiteral("/cinema");

QString randomKey()
{
    std::array<quint32, 8> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    return QString::fromLatin1(QByteArray(reinterpret_cast<char const*>(words.data()), sizeof words).toHex());
}

DirectoryChannel channel(char const* id, char const* type, QStringList const& uris, char const* name,
                         char const* description)
{
    DirectoryChannel made;
    made.id = QString::fromLatin1(id);
    made.uris = uris;
    made.fields = {{"channel_type", QString::fromLatin1(type)},
                   {"name", QString::fromLatin1(name)},
                   {"description", QString::fromLatin1(description)},
                   {"chatroom_name", QString::fromLatin1(name)},
                   {"website_url", "{web}/channels/"},
                   {"link_text", "All channels"}};
    return made;
}

/// Those that there are streams for.
QList<DirectoryChannel> channelsOf(Seeds::Streams const& streams)
{
    QStringList plain = streams.television;
    plain.removeAll(vault);
    plain.removeAll(cinema);
    QString const first = plain.value(0);
    QString const second = plain.value(1, first);
    QList<DirectoryChannel> channels;
    if (!first.isEmpty())
        channels.append(channel("one", "TV", {"{mms-http}" + first}, "Ombra One", "The first channel, all day long"));
    if (!streams.radio.isEmpty())
        channels.append(channel("radio", "RADIO", {"{mms-tcp}" + streams.radio.first()}, "Ombra Radio",
                                "One tone, for those who only listen"));
    if (!streams.rtsp.isEmpty())
        channels.append(
            channel("harbour", "TV", {"{rtsp}" + streams.rtsp}, "Ombra Harbour", "Live from the harbour"));
    if (!streams.hls.isEmpty())
        channels.append(channel("relay", "TV", {"{web}/hls" + streams.hls.first() + "/live.m3u8"}, "Ombra Relay",
                                "What others have cut into pieces"));
    if (!first.isEmpty())
        channels.append(channel("twin", "TV", {"{mms-http}" + first, "{mms-tcp}" + second}, "Ombra Twin",
                                "Two cameras, side by side"));
    if (streams.television.contains(vault)) {
        channels.append(channel("vault", "SECURE", {"{mms-http}" + vault}, "Ombra Vault", "For those with a key"));
        channels.last().fields.insert({{"key", randomKey()}, {"provider", "local"}});
    }
    if (streams.television.contains(cinema)) {
        channels.append(channel("cinema", "TV", {"{mms-http}" + cinema}, "Ombra Cinema", "One film at a time"));
        channels.last().fields.insert("purchase_url", "{web}/purchase");
    }
    if (!first.isEmpty())
        channels.append(channel("static", "TV", {"{mms-http}/nowhere"}, "Ombra Static", "Nobody has seen it yet"));
    return channels;
}

void plantPeople(Accounts& accounts)
{
    accounts.setGroup({0, QStringLiteral("AllChannels"), QStringLiteral("All channels"), QStringLiteral("ALL"), {}});
    accounts.setGroup({0, QStringLiteral("Viewers"), QStringLiteral("Who watches"), QStringLiteral("VIEW"), {}});
    accounts.setRole(
        {0, QStringLiteral("Chat Moderator"), QStringLiteral("MOD"), QStringLiteral("chatSuffix=Moderator")});
    accounts.setRole({0, QStringLiteral("Viewer"), QStringLiteral("VIEW"), {}});
    QString error;
    if (Account const account = accounts.add(QString::fromLatin1(Seeds::moderator), {}, false, error);
        !account.isNull()) {
        accounts.setName(account.id, QStringLiteral("Moderator"));
        accounts.setMember(account.id, QStringLiteral("AllChannels"), true);
        accounts.setInRole(account.id, QStringLiteral("Chat Moderator"), true);
    }
    error.clear();
    if (Account const account = accounts.add(QString::fromLatin1(Seeds::guest), {}, false, error);
        !account.isNull()) {
        accounts.setName(account.id, QStringLiteral("Guest"));
        accounts.setMember(account.id, QStringLiteral("Viewers"), true);
        accounts.setInRole(account.id, QStringLiteral("Viewer"), true);
    }
}
} // namespace

void Seeds::plant(Database& database, Accounts& accounts, Directory& directory, Streams const& streams)
{
    QString const setting = QStringLiteral("seeds_planted");
    QStringList planted = database.value(QStringLiteral("SELECT content FROM settings WHERE name = ?"), {setting})
                              .toString()
                              .split(' ');
    qsizetype const before = planted.size();
    if (!planted.contains(QLatin1String("people"))) {
        plantPeople(accounts);
        planted.append(QStringLiteral("people"));
    }
    for (DirectoryChannel const& one : channelsOf(streams)) {
        if (planted.contains(one.id) || (directory.find(one.id).isNull() && !directory.put(one).isEmpty()))
            continue;
        planted.append(one.id);
    }
    if (planted.size() == before)
        return;
    Database::Transaction transaction(database);
    database.run(QStringLiteral("DELETE FROM settings WHERE name = ?"), {setting});
    database.run(QStringLiteral("INSERT INTO settings (name, content) VALUES (?, ?)"),
                 {setting, planted.join(' ').trimmed()});
    transaction.commit();
}
