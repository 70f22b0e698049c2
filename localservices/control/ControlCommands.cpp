#include "ControlCommands.h"

#include "AccountCommands.h"
#include "AsfFile.h"
#include "BiscottiCommands.h"
#include "Broadcast.h"
#include "BroadcastCatalogue.h"
#include "ChannelCommands.h"
#include "FaultPlan.h"
#include "Service.h"
#include "WebCommands.h"

#include <array>

QStringList ControlCommands::help()
{
    return QStringList{
               QStringLiteral("help                     this list"),
               QStringLiteral("list                     services and streams, with their clients"),
               QStringLiteral("faults                   what is to go wrong"),
               QStringLiteral("fault STREAM WHAT [on STEP] [times COUNT]"),
               QStringLiteral(
                   "                         makes something go wrong for those who ask for a stream, \"*\" for any"),
               QStringLiteral(
                   "clear [STREAM]           forgets the faults, silence and rates of a stream, or of all"),
               QStringLiteral("drop [STREAM]            closes the connections that play a stream, or all"),
               QStringLiteral("silence on|off [STREAM]  stops sending in mid-stream, and goes on"),
               QStringLiteral("rate PERCENT [STREAM]    how fast a stream runs, 1% to 1000%"),
               QStringLiteral("playlist next [STREAM]   goes on with the next film of its playlist"),
               QStringLiteral("header [STREAM]          goes on under a changed header"),
               QStringLiteral("end [STREAM]             ends the stream for those who play it"),
           } +
           BiscottiCommands::help() + AccountCommands::help() + ChannelCommands::help() + WebCommands::help();
}

QString ControlCommands::withoutSecrets(QString const& line)
{
    return AccountCommands::withoutSecrets(line);
}

ControlCommands::Answer ControlCommands::run(QString const& line)
{
    static constexpr std::array<std::pair<char const*, Handler>, 12> handlers = {{
        {"help", &ControlCommands::showHelp},
        {"list", &ControlCommands::list},
        {"faults", &ControlCommands::listFaults},
        {"fault", &ControlCommands::addFault},
        {"clear", &ControlCommands::clear},
        {"drop", &ControlCommands::drop},
        {"silence", &ControlCommands::silence},
        {"rate", &ControlCommands::rate},
        {"playlist", &ControlCommands::playlist},
        {"header", &ControlCommands::header},
        {"end", &ControlCommands::end},
        {"biscotti", &ControlCommands::biscotti},
    }};
    QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    QString const command = words.takeFirst();
    for (auto const& [name, handler] : handlers) {
        if (command == QLatin1String(name))
            return (this->*handler)(words);
    }
    if (auto const added = _added.constFind(command); added != _added.constEnd()) {
        Answer answer;
        answer.error = (*added)(words, answer.lines);
        return answer;
    }
    for (QString const& known : help()) {
        if (known.section(' ', 0, 0) == command)
            return {{}, QStringLiteral("the web service, which knows \"%1\", is not served").arg(command)};
    }
    return {{}, QStringLiteral("\"%1\" is no command; \"help\" lists them").arg(command), false};
}

ControlCommands::Answer ControlCommands::showHelp(QStringList const&)
{
    return {help(), {}};
}

ControlCommands::Answer ControlCommands::list(QStringList const&)
{
    Answer answer;
    for (Service const* const service : std::as_const(_services))
        answer.lines.append(QStringLiteral("%1: port %2, %3 clients")
                                .arg(service->name())
                                .arg(service->port())
                                .arg(service->connectionCount()));
    for (Broadcast const* const broadcast : _catalogue.all())
        answer.lines.append(QStringLiteral("%1: %2 s, generation %3, %4 streams, %5%%6, %7 playing")
                                .arg(broadcast->name())
                                .arg(broadcast->position() / 1000)
                                .arg(broadcast->playlistGeneration())
                                .arg(broadcast->film().header().streams().size())
                                .arg(broadcast->rate())
                                .arg(broadcast->isSilent() ? QStringLiteral(", silent") : QString())
                                .arg(broadcast->listenerCount()));
    return answer;
}

ControlCommands::Answer ControlCommands::listFaults(QStringList const&)
{
    return {_faults.toText(), {}};
}

ControlCommands::Answer ControlCommands::addFault(QStringList const& words)
{
    Answer answer;
    QString const name = words.value(0);
    if (name != "*" && !_catalogue.find(name)) {
        answer.error = QStringLiteral("\"%1\" is no stream; there are %2").arg(name, _catalogue.names().join(", "));
        return answer;
    }
    if (std::optional<Fault> const fault = Fault::parse(words.mid(1), answer.error))
        _faults.add(name == "*" ? name : BroadcastCatalogue::nameOf(name), *fault);
    return answer;
}

ControlCommands::Answer ControlCommands::clear(QStringList const& words)
{
    Answer answer;
    QString const name = words.value(0);
    for (Broadcast* const broadcast : name == "*" ? QList<Broadcast*>() : broadcasts(name, answer)) {
        _faults.clear(broadcast->name());
        broadcast->setSilent(false);
        broadcast->setRate(100);
    }
    if (name.isEmpty() || name == "*")
        _faults.clear(QStringLiteral("*"));
    return answer;
}

ControlCommands::Answer ControlCommands::drop(QStringList const& words)
{
    Answer answer;
    QString const name = words.value(0);
    if (!name.isEmpty() && broadcasts(name, answer).isEmpty())
        return answer;
    int dropped = 0;
    for (Service* const service : std::as_const(_services))
        dropped += service->drop(name.isEmpty() ? name : BroadcastCatalogue::nameOf(name));
    answer.lines = {QStringLiteral("%1 dropped").arg(dropped)};
    return answer;
}

ControlCommands::Answer ControlCommands::silence(QStringList const& words)
{
    Answer answer;
    if (words.value(0) != "on" && words.value(0) != "off")
        return {{}, QStringLiteral("\"silence on\" or \"silence off\"")};
    for (Broadcast* const broadcast : broadcasts(words.value(1), answer))
        broadcast->setSilent(words.at(0) == "on");
    return answer;
}

ControlCommands::Answer ControlCommands::rate(QStringList const& words)
{
    Answer answer;
    QString number = words.value(0);
    if (number.endsWith('%'))
        number.chop(1);
    bool isNumber = false;
    int const percent = number.toInt(&isNumber);
    if (!isNumber || percent < 1 || percent > 1000)
        return {{}, QStringLiteral("\"rate %1\": a number from 1% to 1000% is needed").arg(words.value(0))};
    for (Broadcast* const broadcast : broadcasts(words.value(1), answer))
        broadcast->setRate(percent);
    return answer;
}

ControlCommands::Answer ControlCommands::playlist(QStringList const& words)
{
    Answer answer;
    if (words.value(0) != "next")
        return {{}, QStringLiteral("\"playlist next\" is all that there is")};
    for (Broadcast* const broadcast : broadcasts(words.value(1), answer))
        broadcast->nextEntry();
    return answer;
}

ControlCommands::Answer ControlCommands::header(QStringList const& words)
{
    Answer answer;
    for (Broadcast* const broadcast : broadcasts(words.value(0), answer))
        broadcast->changeHeader();
    return answer;
}

ControlCommands::Answer ControlCommands::end(QStringList const& words)
{
    Answer answer;
    for (Broadcast* const broadcast : broadcasts(words.value(0), answer))
        broadcast->end();
    return answer;
}

ControlCommands::Answer ControlCommands::biscotti(QStringList const& words)
{
    Answer answer;
    if (_biscotti)
        answer.error = _biscotti->run(words, answer.lines);
    else
        answer.error = QStringLiteral("Biscotti is not served");
    return answer;
}

QList<Broadcast*> ControlCommands::broadcasts(QString const& name, Answer& answer) const
{
    if (name.isEmpty())
        return _catalogue.all();
    if (Broadcast* const broadcast = _catalogue.find(name))
        return {broadcast};
    answer.error = QStringLiteral("\"%1\" is no stream; there are %2").arg(name, _catalogue.names().join(", "));
    return {};
}
