#include "Accounts.h"
#include "ApiDescription.h"
#include "Directory.h"
#include "ServiceApi.h"
#include "ServicePlaces.h"

#include <QUuid>

#include <array>

namespace
{
constexpr char const* nowhere = "ZZ";    ///< The country of a viewer on this machine, by ISO 3166's rule for such.
constexpr char const* certainty = "100"; ///< Of the country, in percent.

/// What a viewer can say of a channel of his own.
constexpr std::array<char const*, 5> formFields = {"name", "description", "channel_type", "logo_url",
                                                   "chatroom_name"};
} // namespace

Account ServiceApi::callerOf(Exchange const& exchange) const
{
    Account const account = _parts.accounts.ofNode(exchange.argument("node_identifier"));
    if (account.isNull())
        exchange.fail(QStringLiteral("Please sign in first."));
    return account;
}

void ServiceApi::allowedChannels(Exchange const& exchange)
{
    Account const account = _parts.accounts.ofNode(exchange.argument("node_identifier"));
    QStringList const ids = _parts.directory.idsFor(account.id);
    QString const chosen = _parts.directory.defaultChannel();
    ApiValue value;
    value.add("ip_address", exchange.request.peer);
    value.add("country_id", nowhere);
    value.add("confidence_factor", certainty);
    value.add("default_channel", ids.contains(chosen) ? chosen : ids.value(0));
    value.add("channels", ApiValue::listOf(ids));
    exchange.answer(value);
}

ApiValue ServiceApi::describe(DirectoryChannel const& channel, WebRequest const& request) const
{
    ApiValue value;
    for (QString const& field : ApiDescription::streamFields()) {
        if (field == "uri")
            value.add(field, _parts.places.resolve(channel.uris.value(0), request));
        else if (field == "id" || field == "root_id")
            value.add(field, channel.id);
        else if (field == "logo_url")
            value.add(field, _parts.places.logoOf(channel, request));
        else
            value.add(field, channel.field(field.toLatin1()));
    }
    return value;
}

ApiValue ServiceApi::page(QString const& words, int number, WebRequest const& request) const
{
    int total = 0;
    ApiValue streams;
    for (DirectoryChannel const& channel : _parts.directory.search(words, number, total))
        streams.addItem(describe(channel, request));
    ApiValue value;
    value.add("total_entries", total);
    value.add("user_streams", streams);
    return value;
}

void ServiceApi::searchStreams(Exchange const& exchange)
{
    int const number = qMax(1, exchange.argument("Page").toInt());
    exchange.answer(page(exchange.argument("Query").left(200), number, exchange.request));
}

void ServiceApi::topStreams(Exchange const& exchange)
{
    exchange.answer(page({}, 1, exchange.request));
}

void ServiceApi::addStream(Exchange const& exchange)
{
    Account const account = callerOf(exchange);
    if (account.isNull())
        return;
    QString const id = exchange.argument("user_stream_id");
    if (QString const why = _parts.directory.setAdded(account.id, id, true); !why.isEmpty())
        return exchange.fail(why);
    exchange.answer(describe(_parts.directory.find(id), exchange.request));
}

/// A channel that nobody else has added goes with the viewer who made it.
void ServiceApi::removeStream(Exchange const& exchange)
{
    Account const account = callerOf(exchange);
    if (account.isNull())
        return;
    QString const id = exchange.argument("user_stream_id");
    if (QString const why = _parts.directory.setAdded(account.id, id, false); !why.isEmpty())
        return exchange.fail(why);
    if (_parts.directory.find(id).owner == account.id && _parts.directory.addersOf(id) == 0)
        _parts.directory.remove(id);
    exchange.answer(true);
}

void ServiceApi::togglePartner(Exchange const& exchange)
{
    Account const account = callerOf(exchange);
    if (account.isNull())
        return;
    QString const id = exchange.argument("channel_id");
    bool const isThere = _parts.directory.idsFor(account.id).contains(id);
    if (QString const why = _parts.directory.setRemoved(account.id, id, isThere); !why.isEmpty())
        return exchange.fail(why);
    exchange.answer(true);
}

void ServiceApi::createStream(Exchange const& exchange)
{
    Account const account = callerOf(exchange);
    if (account.isNull())
        return;
    DirectoryChannel channel;
    channel.id = "v" + QUuid::createUuid().toString(QUuid::Id128);
    channel.owner = account.id;
    channel.uris = {exchange.argument("uri").trimmed()};
    for (char const* const field : formFields) {
        if (QString const text = exchange.argument(field).trimmed(); !text.isEmpty())
            channel.fields.insert(QString::fromLatin1(field), text);
    }
    // The places of this machine's services are for its own seeds.
    if (channel.uris.first().startsWith('{') || channel.field("logo_url").startsWith('{'))
        return exchange.fail(QStringLiteral("This is no address of a stream."));
    QString why = _parts.directory.put(channel);
    if (why.isEmpty())
        why = _parts.directory.setAdded(account.id, channel.id, true);
    if (!why.isEmpty())
        return exchange.fail(why);
    exchange.answer(describe(channel, exchange.request));
}
