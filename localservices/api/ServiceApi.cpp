#include "ServiceApi.h"

#include "Accounts.h"
#include "ApiDescription.h"
#include "ApiNames.h"
#include "Doorkeeper.h"
#include "LogInText.h"
#include "MessageBoard.h"
#include "SignInSettings.h"

#include <QDateTime>
#include <QXmlStreamWriter>

#include <array>

namespace
{
QByteArray const xmlType = "text/xml; charset=utf-8";

/// What a sign-up is answered with, as XML within the reply.
QString signUpText(QStringList const& errors)
{
    QString text;
    QXmlStreamWriter xml(&text);
    if (errors.isEmpty())
        xml.writeEmptyElement(QStringLiteral("response"));
    else
        xml.writeStartElement(QStringLiteral("errors"));
    for (QString const& error : errors)
        xml.writeTextElement(QStringLiteral("error"), error);
    xml.writeEndDocument();
    return text;
}
} // namespace

void ServiceApi::Exchange::answer(ApiValue const& value) const
{
    reply({200, xmlType, ApiValue::reply(call.method, value), {}});
}

void ServiceApi::Exchange::fail(QString const& text) const
{
    reply(fault(QStringLiteral("Client"), text));
}

WebAnswer ServiceApi::fault(QString const& code, QString const& text)
{
    return {500, xmlType, ApiValue::fault(code, text), {}};
}

QString ServiceApi::methodOf(WebRequest const& request)
{
    QString error;
    if (request.path != ApiNames::path || request.method != WebRequest::Method::Post)
        return {};
    auto const call = ApiCall::read(request.body, error);
    return call ? call->method : QString();
}

ServiceApi::Handler ServiceApi::handlerOf(QString const& method)
{
    static constexpr std::array<std::pair<char const*, Handler>, 10> handlers = {{
        {"LoginWithErrorHandling", &ServiceApi::logIn},
        {"Register", &ServiceApi::signUp},
        {"GetMessages", &ServiceApi::messages},
        {"GetAllowedChannels", &ServiceApi::allowedChannels},
        {"GetUserStreams", &ServiceApi::searchStreams},
        {"GetTopUserStreams", &ServiceApi::topStreams},
        {"AddUserStream", &ServiceApi::addStream},
        {"DestroyUserStream", &ServiceApi::removeStream},
        {"TogglePartnerChannel", &ServiceApi::togglePartner},
        {"CreateUserStream", &ServiceApi::createStream},
    }};
    for (auto const& [name, handler] : handlers) {
        if (method == QLatin1String(name))
            return handler;
    }
    return nullptr;
}

void ServiceApi::handle(WebRequest const& request, Reply const& reply)
{
    if (request.isRead() && request.query.hasQueryItem(QStringLiteral("wsdl")))
        return reply({200, xmlType, ApiDescription::wsdl(request.base() + QString::fromLatin1(ApiNames::path)), {}});
    if (request.method != WebRequest::Method::Post)
        return reply(WebAnswer::text(405, QStringLiteral("This is spoken to by SOAP; \"?wsdl\" describes it.")));
    // A web page can post other types in its visitor's name, but not this one.
    if (!request.contentType.trimmed().toLower().startsWith("text/xml"))
        return reply(WebAnswer::text(415, QStringLiteral("SOAP 1.1 comes as text/xml.")));
    QString error;
    auto const call = ApiCall::read(request.body, error);
    if (!call)
        return reply(fault(
            error == ApiNames::otherVersion ? QStringLiteral("VersionMismatch") : QStringLiteral("Client"), error));
    if (Handler const handler = handlerOf(call->method))
        return (this->*handler)({*call, request, reply});
    reply(fault(QStringLiteral("Client"), QStringLiteral("There is no method %1.").arg(call->method.left(100))));
}

void ServiceApi::logIn(Exchange const& exchange)
{
    auto const login = LogInText::read(exchange.argument("login"));
    if (!login)
        return exchange.fail(QStringLiteral("The sign-in cannot be read."));
    _parts.doorkeeper.signIn(
        exchange.request.peer, login->email, login->password,
        [this, exchange, node = login->node](Account const& account, QString const& reason) {
            ApiValue refusal;
            refusal.add("authenticated", false);
            refusal.add("message", reason);
            refusal.add("response_code", 0);
            if (account.isNull())
                return exchange.answer(refusal);
            if (!_parts.accounts.rememberNode(node, account.id, QDateTime::currentSecsSinceEpoch()))
                return exchange.fail(QStringLiteral("The service cannot store this now."));
            exchange.answer(signedIn(account));
        });
}

ApiValue ServiceApi::signedIn(Account const& account) const
{
    ApiValue value;
    value.add("authenticated", true);
    value.add("message", QString());
    value.add("user_id", QString::number(account.id));
    for (SignInSettings::Setting const& setting : SignInSettings::all()) {
        QString const name = QString::fromLatin1(setting.name);
        value.add(name, _parts.settings.value(name));
    }
    ApiValue groups;
    for (AccountGroup const& group : _parts.accounts.groupsOf(account.id)) {
        ApiValue item;
        item.add("name", group.name);
        item.add("description", group.description);
        item.add("abbr", group.abbr);
        item.add("variables", group.variables);
        item.add("id", QString::number(group.id));
        groups.addItem(item);
    }
    value.add("groups", groups);
    ApiValue roles;
    for (AccountRole const& role : _parts.accounts.rolesOf(account.id)) {
        ApiValue item;
        item.add("title", role.title);
        item.add("abbr", role.abbr);
        item.add("variables", role.variables);
        item.add("id", QString::number(role.id));
        roles.addItem(item);
    }
    value.add("roles", roles);
    return value;
}

void ServiceApi::signUp(Exchange const& exchange)
{
    _parts.doorkeeper.signUp(exchange.request.peer, exchange.argument("user_name"), exchange.argument("password"),
                             exchange.argument("email_allowed") == "true",
                             [exchange](QStringList const& reasons) { exchange.answer(signUpText(reasons)); });
}

void ServiceApi::messages(Exchange const& exchange)
{
    ApiValue value;
    value.add("ttl", secondsBetweenMessages);
    value.add("messages", ApiValue::listOf(_parts.messages.take(exchange.argument("node_identifier"))));
    exchange.answer(value);
}
