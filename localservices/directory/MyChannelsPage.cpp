#include "MyChannelsPage.h"

#include "Accounts.h"
#include "Directory.h"
#include "Doorkeeper.h"
#include "HtmlPage.h"
#include "TickCounter.h"

#include <QRandomGenerator>

namespace
{
QString const pageTitle = QStringLiteral("My Channels");

/// The fields of a form as browsers post it.
QString field(QByteArray body, char const* name)
{
    QUrlQuery const form(QString::fromUtf8(body.replace('+', "%20")));
    return form.queryItemValue(QString::fromLatin1(name), QUrl::FullyDecoded);
}
} // namespace

void MyChannelsPage::handle(WebRequest const& request, Reply const& reply)
{
    if (request.method != WebRequest::Method::Post)
        return reply(signInForm({}));
    QString const number = field(request.body, "session");
    Session const session = _sessions.value(number);
    if (isValid(session)) {
        QString const why = _directory.setRemoved(session.account.id, field(request.body, "channel"), false);
        return reply(list(number, why.isEmpty() ? QStringLiteral("The channel is back in your list.") : why));
    }
    if (!number.isEmpty())
        return reply(signInForm(QStringLiteral("Please sign in again.")));
    _doorkeeper.signIn(request.peer, field(request.body, "email"), field(request.body, "password"),
                       [this, reply](Account const& account, QString const& reason) {
                           reply(account.isNull() ? signInForm(reason) : list(begin(account), {}));
                       });
}

/// The number of an account that has been removed may be another's by now.
bool MyChannelsPage::isValid(Session const& session) const
{
    return !session.account.isNull() && _tickCounter.msSinceEpoch() - session.msBegin < msOfSession &&
           _accounts.find(session.account.id).email == session.account.email;
}

QString MyChannelsPage::begin(Account const& account)
{
    if (_sessions.size() >= maximumSessions)
        _sessions.clear();
    quint32 words[4];
    QRandomGenerator::system()->fillRange(words);
    QString const number =
        QString::fromLatin1(QByteArray(reinterpret_cast<char const*>(words), sizeof words).toHex());
    _sessions.insert(number, {account, _tickCounter.msSinceEpoch()});
    return number;
}

WebAnswer MyChannelsPage::signInForm(QString const& error) const
{
    QString const note = error.isEmpty() ? QString() : "<p class=\"error\">" + error.toHtmlEscaped() + "</p>\n";
    return HtmlPage::make(
        pageTitle,
        note + QStringLiteral("<p>Sign in to restore partner channels that you have deleted.</p>\n"
                              "<form method=\"post\"><label>E-mail <input name=\"email\" type=\"email\" required>"
                              "</label><label>Password <input name=\"password\" type=\"password\" required>"
                              "</label><button>Sign In</button></form>"));
}

WebAnswer MyChannelsPage::list(QString const& session, QString const& note) const
{
    QString body = note.isEmpty() ? QString() : "<p>" + note.toHtmlEscaped() + "</p>\n";
    QString items;
    for (DirectoryChannel const& channel : _directory.removedBy(_sessions.value(session).account.id))
        items += QStringLiteral("<li><img src=\"/logos/%1.png\" alt=\"\"><form method=\"post\">"
                                "<input type=\"hidden\" name=\"session\" value=\"%2\">"
                                "<input type=\"hidden\" name=\"channel\" value=\"%1\">%3 "
                                "<button>Restore</button></form></li>\n")
                     .arg(channel.id, session, channel.field("name").toHtmlEscaped());
    body +=
        items.isEmpty() ? QStringLiteral("<p>You have deleted no partner channels.</p>") : "<ul>" + items + "</ul>";
    return HtmlPage::make(pageTitle, body);
}
