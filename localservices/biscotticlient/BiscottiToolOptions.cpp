#include "BiscottiToolOptions.h"

#include <algorithm>
#include <array>
#include <functional>
#include <stdexcept>

namespace
{

using Options = BiscottiToolOptions;

/// A switch of the command line. With a value it is written "--name VALUE" or "--name=VALUE".
struct Switch {
    char const* name;
    bool hasValue;
    std::function<QString(Options&, QString const&)> apply; ///< Returns an error, or nothing.
};

/// HOST, HOST:PORT, or [ADDRESS]:PORT for one that has colons itself.
QString setServer(Options& options, QString const& value)
{
    qsizetype const colon = value.lastIndexOf(':');
    bool const hasPort = colon > value.lastIndexOf(']') && (value.startsWith('[') || value.count(':') == 1);
    options.host = hasPort ? value.left(colon) : value;
    if (options.host.startsWith('[') && options.host.endsWith(']'))
        options.host = options.host.mid(1, options.host.size() - 2);
    bool isPort = true;
    if (hasPort)
        options.port = value.mid(colon + 1).toUShort(&isPort);
    if (options.host.isEmpty() || !isPort || options.port == 0)
        return QStringLiteral("a server such as 127.0.0.1:%1 is needed").arg(Deployment::biscottiPort);
    return {};
}

QString setNumber(int& number, QString const& value, int maximum)
{
    bool isNumber = false;
    number = value.toInt(&isNumber);
    if (!isNumber || number < 1 || number > maximum)
        return QStringLiteral("a number from 1 to %1 is needed").arg(maximum);
    return {};
}

QString setAudience(Options& options, QString const& value)
{
    try {
        options.audience = BiscottiTopicExpression(value);
    } catch (std::logic_error const&) {
        return QStringLiteral("the characters &, | and ~ are reserved");
    }
    return options.audience.isEmpty() ? QStringLiteral("a topic such as .user.ann is needed") : QString();
}

std::array<Switch, 9> const& switches()
{
    static std::array<Switch, 9> const all = {{
        {"server", true, setServer},
        {"sender", true, [](Options& o, QString const& v) { return o.sender = v, QString(); }},
        {"audience", true, setAudience},
        {"timeout", true,
         [](Options& o, QString const& v) { return setNumber(o.timeout, v, Options::maximumTimeout); }},
        {"count", true, [](Options& o, QString const& v) { return setNumber(o.count, v, 1'000'000'000); }},
        {"bodies", false, [](Options& o, QString const&) { return o.bodiesOnly = true, QString(); }},
        {"debug", false, [](Options& o, QString const&) { return o.debug = true, QString(); }},
        {"help", false, [](Options& o, QString const&) { return o.showHelp = true, QString(); }},
        {"version", false, [](Options& o, QString const&) { return o.showVersion = true, QString(); }},
    }};
    return all;
}

QString addTopic(Options& options, QString const& text)
{
    BiscottiTopic const topic(text);
    bool const isReserved = text.contains('&') || text.contains('|') || text.contains('~');
    if (topic.isNull() || isReserved)
        return QStringLiteral("\"%1\" is no topic; one looks like .chat.news").arg(text);
    options.topics.append(topic);
    return {};
}

/// What is left beside the switches: the command and its words.
QString setCommand(Options& options, QStringList words)
{
    if (words.isEmpty())
        return QStringLiteral("a command is needed, sub or post");
    QString const command = words.takeFirst();
    if (command != "sub" && command != "post")
        return QStringLiteral("\"%1\" is no command; there are sub and post").arg(command);
    options.command = command == "sub" ? Options::Command::Subscribe : Options::Command::Post;
    if (words.isEmpty())
        return QStringLiteral("%1 needs a topic").arg(command);
    if (command == "post") {
        if (words.size() > 2)
            return QStringLiteral("post takes a topic and a body; a body of several words has to be quoted");
        options.bodyFromInput = words.value(1) == "-";
        options.body = options.bodyFromInput ? QByteArray() : words.value(1).toUtf8();
        words = words.first(1);
    }
    for (QString const& word : words) {
        if (QString const error = addTopic(options, word); !error.isEmpty())
            return error;
    }
    return {};
}

} // namespace

std::optional<BiscottiToolOptions> BiscottiToolOptions::parse(QStringList const& arguments, QString& error)
{
    BiscottiToolOptions options;
    QStringList words;
    bool onlyWords = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        QString const& argument = arguments.at(i);
        if (onlyWords || !argument.startsWith("--")) {
            words.append(argument);
            continue;
        }
        if (argument == "--") {
            onlyWords = true;
            continue;
        }
        QString const name = argument.mid(2).section('=', 0, 0);
        auto const known = std::find_if(switches().begin(), switches().end(),
                                        [&](Switch const& one) { return name == QLatin1String(one.name); });
        bool const hasEquals = argument.contains('=');
        if (known == switches().end() || (hasEquals && !known->hasValue)) {
            error = QStringLiteral("unknown option %1; see --help").arg(argument);
            return std::nullopt;
        }
        if (known->hasValue && !hasEquals && i + 1 == arguments.size()) {
            error = QStringLiteral("%1 needs a value; see --help").arg(argument);
            return std::nullopt;
        }
        QString const value = hasEquals ? argument.section('=', 1) : known->hasValue ? arguments.at(++i) : QString();
        if (QString const why = known->apply(options, value); !why.isEmpty()) {
            error = QStringLiteral("--%1 %2: %3").arg(name, value, why);
            return std::nullopt;
        }
    }
    if (!options.showHelp && !options.showVersion)
        error = setCommand(options, words);
    return error.isEmpty() ? std::optional(options) : std::nullopt;
}
