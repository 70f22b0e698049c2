#include "ArgumentList.h"

#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <span>

Logger* ArgumentList::log = LoggerManager::logger();

namespace
{

QString const endOfSwitches = QStringLiteral("--");
QString const switchWithValue = QStringLiteral("-debug");

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (char const* argument : std::span(argv, static_cast<size_t>(argc)))
        arguments.append(FileName::fromArgument(argument));
    return arguments;
}

QStringList positionalsOf(QStringList const& arguments)
{
    QStringList positionals;
    bool switchesEnded = false;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        QString const& argument = arguments.at(i);
        if (switchesEnded || !argument.startsWith('-'))
            positionals.append(argument);
        else if (argument == endOfSwitches)
            switchesEnded = true;
        else if (argument == switchWithValue && i + 1 < arguments.size() && !arguments.at(i + 1).startsWith('-'))
            ++i;
    }
    return positionals;
}

} // namespace

ArgumentList::ArgumentList(int argc, char** argv) : QStringList(argsToStringlist(argc, argv))
{
    QStringList const arguments = argumentsOf(argc, argv);
    qsizetype token = 0;
    for (QString const& argument : arguments) {
        qsizetype const end = token + argument.count('=') + 1;
        for (++token; token < end; ++token)
            _continuations.insert(token);
    }
    _positionalArguments = positionalsOf(arguments);
}

ArgumentList::ArgumentList(QStringList const& tokens) : QStringList(tokens) {}

QStringList ArgumentList::argsToStringlist(int argc, char** argv)
{
    QStringList tokens;
    for (QString const& argument : argumentsOf(argc, argv))
        tokens += argument.split('=', Qt::KeepEmptyParts);
    return tokens;
}

QString ArgumentList::getSwitchArg(QString const& switchName, QString const& defaultValue) const
{
    if (isEmpty()) {
        LOG_DEBUG("No arguments found.");
        return defaultValue;
    }
    for (qsizetype i = 0; i < size(); ++i) {
        if (_continuations.contains(i))
            continue;
        if (at(i) == endOfSwitches)
            break;
        if (at(i) != switchName)
            continue;
        bool const hasValue = i + 1 < size() && !at(i + 1).startsWith('-');
        return hasValue ? at(i + 1) : QStringLiteral("");
    }
    return defaultValue;
}
