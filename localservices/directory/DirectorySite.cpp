#include "DirectorySite.h"

#include "Accounts.h"
#include "ApiNames.h"
#include "ChannelDocument.h"
#include "ChannelLogo.h"
#include "Directory.h"
#include "HlsBroadcasts.h"
#include "HtmlPage.h"
#include "MyChannelsPage.h"
#include "ServiceApi.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QXmlStreamWriter>

#include <algorithm>
#include <array>

namespace
{
constexpr int documentsKept = 8;
constexpr int logosKept = 1000;
QString const moderatorRole = QStringLiteral("Chat Moderator");
QString const dateFormat = QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"); // RFC 9110

struct Leaf {
    char const* path;
    char const* title;
    char const* text;
};

/// Pages that the viewer's program links to and that are of words alone.
constexpr std::array<Leaf, 6> leaves = {{
    {"/", "Ombravision local services", "The channels are at <a href=\"/channels/\">/channels/</a>."},
    {"/help", "Help", "Pick a channel from the list to watch it; a second one plays beside it."},
    {"/support", "Support", "Send us the log, from the Help menu, with a word about what happened."},
    {"/feedback", "Feedback", "Tell us what you would like to see."},
    {"/purchase", "Buy a film",
     "Films cost nothing on this machine: ask its operator to clear the address to buy from."},
    {"/account/invitations", "Invitations",
     "Friends sign up in the program; there is nothing to invite them to here."},
}};

QByteArray dateText(qint64 seconds)
{
    return QLocale::c().toString(QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC), dateFormat).toLatin1();
}

qint64 dateOf(QByteArray const& text)
{
    QDateTime date = QLocale::c().toDateTime(QString::fromLatin1(text.left(40)).trimmed(), dateFormat);
    date.setTimeSpec(Qt::UTC);
    return date.isValid() ? date.toSecsSinceEpoch() : -1;
}
} // namespace

DirectorySite::DirectorySite(Parts const& parts, int maximumAge)
    : _parts(parts), _maximumAge(maximumAge), _started(QDateTime::currentSecsSinceEpoch()), _documents(documentsKept),
      _logos(logosKept)
{
}

void DirectorySite::handle(WebRequest const& request, Reply const& reply)
{
    if (request.path == ApiNames::path)
        return _parts.api.handle(request, reply);
    if (request.path == MyChannelsPage::path)
        return _parts.myChannels.handle(request, reply);
    if (!request.isRead())
        return reply(WebAnswer::text(405, QStringLiteral("This can be read only.")));
    reply(page(request));
}

WebAnswer DirectorySite::page(WebRequest const& request)
{
    static QRegularExpression const document(QStringLiteral("^/client/desktop/[A-Za-z0-9_.]{1,32}/channels\\.xml$"));
    if (document.match(request.path).hasMatch())
        return channelDocument(request);
    static QRegularExpression const entitled(
        QStringLiteral("^/client/desktop/[A-Za-z0-9_.]{1,32}/entitlements\\.xml$"));
    if (entitled.match(request.path).hasMatch())
        return entitlements(request);
    if (request.path.startsWith(QLatin1String("/logos/")))
        return logo(request);
    if (request.path.startsWith(QLatin1String("/hls/")))
        return _parts.hls.answer(request.path.mid(4));
    if (request.path == "/channels/" || request.path == "/channels")
        return channelsPage();
    if (request.path == QString("/roles/" + moderatorRole + "/users.xml"))
        return moderators();
    for (Leaf const& leaf : leaves) {
        if (request.path == QLatin1String(leaf.path))
            return HtmlPage::make(QString::fromLatin1(leaf.title), "<p>" + QString::fromLatin1(leaf.text) + "</p>");
    }
    return HtmlPage::make(QStringLiteral("Not found"), QStringLiteral("<p>There is nothing here.</p>"), 404);
}

WebAnswer DirectorySite::dated(WebRequest const& request, QByteArray const& type, qint64 changed,
                               std::function<QByteArray()> const& content) const
{
    WebAnswer answer{200, type, {}, {}};
    answer.headers = {{"Last-Modified", dateText(changed)},
                      {"Cache-Control", "max-age=" + QByteArray::number(_maximumAge)}};
    // A date of the future is none of ours.
    qint64 const since = dateOf(request.ifModifiedSince);
    if (since >= changed && since <= std::max(QDateTime::currentSecsSinceEpoch(), changed)) {
        answer.status = 304;
        answer.type.clear();
    } else {
        answer.body = content();
    }
    return answer;
}

WebAnswer DirectorySite::channelDocument(WebRequest const& request)
{
    // The ports of the services are in it, and new with each start.
    qint64 const changed = std::max(_parts.directory.lastChanged(), _started);
    QString const key = request.base();
    return dated(request, "application/xml; charset=utf-8", changed, [&] {
        Made* made = _documents.object(key);
        if (!made || made->changed != changed) {
            made = new Made{changed, ChannelDocument::write(_parts.directory.all(), _parts.places, request)};
            _documents.insert(key, made);
        }
        return made->bytes;
    });
}

WebAnswer DirectorySite::entitlements(WebRequest const& request)
{
    qint64 const changed = _parts.directory.lastChanged();
    return dated(request, "application/xml; charset=utf-8", changed, [changed] {
        return QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<entitlements changed=\"" +
                          QByteArray::number(changed) + "\"/>\n");
    });
}

WebAnswer DirectorySite::logo(WebRequest const& request)
{
    QString id = request.path.section('/', 2);
    if (!id.endsWith(QLatin1String(".png")))
        return WebAnswer::text(404, QStringLiteral("There is no such logo."));
    id.chop(4);
    if (!DirectoryChannel::isId(id) || _parts.directory.find(id).isNull())
        return WebAnswer::text(404, QStringLiteral("There is no such logo."));
    return dated(request, "image/png", _started, [&] {
        QByteArray* bytes = _logos.object(id);
        if (!bytes) {
            bytes = new QByteArray(ChannelLogo::png(id));
            _logos.insert(id, bytes);
        }
        return *bytes;
    });
}

WebAnswer DirectorySite::channelsPage() const
{
    QString items;
    for (DirectoryChannel const& channel : _parts.directory.all())
        items +=
            QStringLiteral("<li><img src=\"/logos/%1.png\" alt=\"\"><span><b>%2</b><br>%3</span></li>\n")
                .arg(channel.id, channel.field("name").toHtmlEscaped(), channel.field("description").toHtmlEscaped());
    return HtmlPage::make(
        QStringLiteral("Channels"),
        QStringLiteral("<p><a href=\"%1\">My Channels</a>: get back what you have deleted.</p>\n<ul>")
                .arg(QLatin1String(MyChannelsPage::path)) +
            items + "</ul>");
}

/// Names only: addresses are nobody's business.
WebAnswer DirectorySite::moderators() const
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("users"));
    for (Account const& account : _parts.accounts.withRole(moderatorRole)) {
        xml.writeStartElement(QStringLiteral("user"));
        xml.writeTextElement(QStringLiteral("id"), QString::number(account.id));
        xml.writeTextElement(QStringLiteral("name"), account.name);
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    return {200, "application/xml; charset=utf-8", bytes, {{"Cache-Control", "no-cache"}}};
}
