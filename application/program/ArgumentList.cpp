#include "ArgumentList.h"

#include "FileName.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <span>

Logger* ArgumentList::log = LoggerManager::logger();

namespace
{

QString const endOfSwitches = QStringLiteral("--");
QString const debugSwitch = QStringLiteral("-debug");
QStringList const knownSwitches = {debugSwitch, "-demo",  "-idkfa", "-startup", "-fullscreen",
                                   "-help",     "--help", "-h",     "-version", "--version"};

QStringList argumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (char const* argument : std::span(argv, static_cast<size_t>(argc)))
        arguments.append(FileName::fromArgument(argument));
    return arguments;
}

/// Whether what stands after -debug is meant as its value rather than as something to play.
bool isClassList(QString const& argument)
{
    static QRegularExpression const shape(QRegularExpression::anchoredPattern("[A-Za-z0-9_,]*"));
    QFileInfo const file(argument);
    return shape.match(argument).hasMatch() && (!file.exists() || file.isDir());
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
    readArguments(arguments);
}

ArgumentList::ArgumentList(QStringList const& tokens) : QStringList(tokens) {}

void ArgumentList::readArguments(QStringList const& arguments)
{
    bool switchesEnded = false;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        QString const& argument = arguments.at(i);
        if (switchesEnded || !argument.startsWith('-')) {
            _positionalArguments.append(argument);
        } else if (argument == endOfSwitches) {
            switchesEnded = true;
        } else if (QString const name = argument.section('=', 0, 0); !knownSwitches.contains(name)) {
            _unknownSwitches.append(name);
        } else if (argument == debugSwitch && i + 1 < arguments.size() && !arguments.at(i + 1).startsWith('-')) {
            if (isClassList(arguments.at(i + 1)))
                ++i;
            else
                _debugStandsAlone = true;
        }
    }
}

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

QStringList ArgumentList::debugClasses() const
{
    return _debugStandsAlone ? QStringList() : getSwitchArg(debugSwitch, QString()).split(',', Qt::SkipEmptyParts);
}
