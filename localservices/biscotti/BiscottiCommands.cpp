#include "BiscottiCommands.h"

#include "BiscottiServer.h"

QStringList BiscottiCommands::help()
{
    return {
        QStringLiteral("biscotti list            clients, subscriptions, posts and what was asked for"),
        QStringLiteral("biscotti ack CODE [times COUNT]"),
        QStringLiteral("                         acknowledges the next messages (1) with this code, such as 500 or"),
        QStringLiteral("                         503, and does nothing else with them"),
        QStringLiteral("biscotti mdwms MS        tells new clients how long they wait for data (120000)"),
        QStringLiteral("biscotti silence on|off  takes what clients send, and answers nothing; and goes on"),
        QStringLiteral("biscotti refuse TOPIC    acknowledges whatever is about this topic, or below, with 403"),
        QStringLiteral("biscotti seal TOPIC      the same with 4011: it has to be signed"),
        QStringLiteral("biscotti drop            closes the connections of all its clients"),
        QStringLiteral("biscotti clear           forgets all of this"),
    };
}

QString BiscottiCommands::run(QStringList const& words, QStringList& lines)
{
    QString const what = words.value(0);
    if (what == "list")
        return list(lines), QString();
    if (what == "ack")
        return fail(words);
    if (what == "mdwms")
        return setMaxDataWait(words);
    if (what == "silence")
        return setSilent(words);
    if (what == "refuse" || what == "seal")
        return addTopic(words);
    if (what == "drop")
        return lines.append(QStringLiteral("%1 dropped").arg(_server.drop({}))), QString();
    if (what == "clear")
        return _server.broker().rules().clear(), QString();
    return QStringLiteral("\"biscotti %1\": there are list, ack, mdwms, silence, refuse, seal, drop and clear")
        .arg(what);
}

QString BiscottiCommands::fail(QStringList const& words)
{
    using Ack = CentralisedBiscottiAck;
    bool isCode = false;
    bool isCount = true;
    Ack ack;
    ack.setAckCode(static_cast<Ack::AckCode>(words.value(1).toInt(&isCode)));
    int const count = words.size() > 2 ? words.value(3).toInt(&isCount) : 1;
    if (!isCode || ack.ackCode() == Ack::Ok || ack.ackDescription() == "<UNKNOWN>")
        return QStringLiteral("\"biscotti ack %1\": a code such as 500 or 503 is needed").arg(words.value(1));
    bool const isForm = words.size() == 2 || (words.size() == 4 && words.at(2) == "times");
    if (!isForm || !isCount || count < 1 || count > BiscottiRules::maximumFailures)
        return QStringLiteral("\"biscotti ack CODE times COUNT\": a count from 1 to %1 is needed")
            .arg(BiscottiRules::maximumFailures);
    _server.broker().rules().failNext(ack.ackCode(), count);
    return {};
}

QString BiscottiCommands::setMaxDataWait(QStringList const& words)
{
    bool isNumber = false;
    qint64 const ms = words.value(1).toLongLong(&isNumber);
    if (!isNumber || ms < 0)
        return QStringLiteral("\"biscotti mdwms %1\": a number of milliseconds is needed").arg(words.value(1));
    _server.broker().rules().maxDataWaitMs = ms;
    return {};
}

QString BiscottiCommands::setSilent(QStringList const& words)
{
    if (words.value(1) != "on" && words.value(1) != "off")
        return QStringLiteral("\"biscotti silence on\" or \"biscotti silence off\"");
    _server.broker().rules().isSilent = words.at(1) == "on";
    return {};
}

QString BiscottiCommands::addTopic(QStringList const& words)
{
    BiscottiTopic const topic(words.value(1));
    if (topic.isNull())
        return QStringLiteral("\"biscotti %1 %2\": a topic such as .chat.news is needed")
            .arg(words.value(0), words.value(1));
    BiscottiRules& rules = _server.broker().rules();
    (words.value(0) == "refuse" ? rules.refused : rules.sealed).append(topic);
    return {};
}

void BiscottiCommands::list(QStringList& lines) const
{
    BiscottiRules const& rules = _server.broker().rules();
    lines.append(QStringLiteral("%1 clients, %2 remembered, %3 subscriptions, %4 posts")
                     .arg(_server.connectionCount())
                     .arg(_server.sessionCount())
                     .arg(_server.broker().router().count())
                     .arg(_server.postCount()));
    lines.append(QStringLiteral("mdwms %1%2").arg(rules.maxDataWaitMs).arg(rules.isSilent ? ", silent" : ""));
    if (rules.failures() > 0)
        lines.append(QStringLiteral("ack %1 times %2").arg(rules.failureCode()).arg(rules.failures()));
    for (BiscottiTopic const& topic : rules.refused)
        lines.append(QStringLiteral("refuse %1").arg(topic.toString()));
    for (BiscottiTopic const& topic : rules.sealed)
        lines.append(QStringLiteral("seal %1").arg(topic.toString()));
}
