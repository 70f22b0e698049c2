#include "Logger.h"

#include "RollingFileLogger.h"
#include "Syslog.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRegularExpression>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string_view>

namespace
{

/// The component that a source file is in, by the name of its directory; empty when it is in none.
QString componentOf(QString const& file)
{
    static QString const components = QStringLiteral("Components/");
    return file.startsWith(components) ? file.section('/', 1, 1) : QString();
}

/// The message with the names and passwords of users gone from the addresses in it (RFC 3986, "userinfo").
QString withoutCredentials(QString message)
{
    static QRegularExpression const userInformation(QStringLiteral("://[^/?#\\s]*@"));
    return message.contains('@') ? message.replace(userInformation, QStringLiteral("://")) : message;
}

qint64 msNow()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

Logger::Logger(QObject* parent)
    : QObject(parent), _levelNames{{Debug, QStringLiteral("debug")},
                                   {Info, QStringLiteral("info")},
                                   {Warning, QStringLiteral("WARNING")},
                                   {Error, QStringLiteral("ERROR")},
                                   {Fatal, QStringLiteral("FATAL")}},
      _unknownLevelName(QStringLiteral("unknown"))
{
}

Logger::~Logger() = default;

void Logger::setLevel(Logger::Level level)
{
    _level.store(level, std::memory_order_relaxed);
}

void Logger::setMethod(Logger::Method method)
{
    _method.store(method, std::memory_order_relaxed);
}

void Logger::setHostname(QString const& hostname)
{
    QMutexLocker locker(&_mutex);
    _hostname = hostname;
}

void Logger::showClass(QString const& className)
{
    QMutexLocker locker(&_mutex);
    _shownClasses.append(className);
}

void Logger::logMessage(Logger::Level level, char const* file, int line, char const* format, ...)
{
    if (isShown(level, file)) {
        va_list args;
        va_start(args, format);
        switch (method()) {
        case StandardError:
            stderrLogMethod(level, file, line, format, args);
            break;
        case QtMessages:
            qtLogMethod(level, file, line, format, args);
            break;
        case RollingFile:
            rollingLogMethod(level, file, line, format, args);
            break;
        }
        va_end(args);
    }
    if (level == Fatal)
        std::abort();
}

bool Logger::isShown(Logger::Level level, char const* file) const
{
    if (this->level() > level)
        return false;
    if (level != Debug)
        return true;
    QMutexLocker locker(&_mutex);
    if (_shownClasses.isEmpty())
        return true;
    QString const name = QString::fromUtf8(file);
    return _shownClasses.contains(QFileInfo(name).baseName()) || _shownClasses.contains(componentOf(name));
}

// The formats come from the call sites, where the compiler has checked them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
QString Logger::getQString(Level level, char const* file, int line, char const* format, va_list args) const
{
    std::array<char, maximumMessageBytes> message;
    std::vsnprintf(message.data(), message.size(), format, args);
    return composeLine(level, file, line, QString::fromUtf8(message.data()));
}

bool Logger::passesThrottle(Level level, char const* file, int line, char const* format, va_list args)
{
    // Who asked for everything gets everything.
    if (level == Fatal || _level.load(std::memory_order_relaxed) == Debug)
        return true;
    std::array<char, maximumMessageBytes> message;
    va_list copy;
    va_copy(copy, args);
    std::vsnprintf(message.data(), message.size(), format, copy);
    va_end(copy);
    size_t const hash = std::hash<std::string_view>()(message.data());
    return _throttle.admits(file, line, level, hash, msNow());
}
#pragma GCC diagnostic pop

QString Logger::composeLine(Level level, char const* file, int line, QString const& message) const
{
    QString const time = QDateTime::currentDateTime().toUTC().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    QString const location = QStringLiteral(" %1:%2 ").arg(QString::fromUtf8(file), QString::number(line));
    return QStringLiteral("[%1] %2%3%4")
        .arg(_levelNames.value(level, _unknownLevelName), time, location, withoutCredentials(message));
}

void Logger::stderrLogMethod(Level level, char const* file, int line, char const* format, va_list args)
{
    std::fprintf(stderr, "%s\r\n", getQString(level, file, line, format, args).toUtf8().constData());
}

void Logger::qtLogMethod(Level level, char const* file, int line, char const* format, va_list args)
{
    QByteArray const text = getQString(level, file, line, format, args).toUtf8();
    switch (level) {
    case Debug:
    case Info:
        qDebug("%s", text.constData());
        break;
    case Warning:
        qWarning("%s", text.constData());
        break;
    case Error:
        qCritical("%s", text.constData());
        break;
    case Fatal:
        qFatal("%s", text.constData());
    }
}

void Logger::rollingLogMethod(Level level, char const* file, int line, char const* format, va_list args)
{
    QStringList complaints;
    std::call_once(_outputsCreated, [this, &complaints] {
        _rollingFileLogger = std::make_unique<RollingFileLogger>();
        _syslog = std::make_unique<Syslog>();
        complaints = _rollingFileLogger->complaints() + _syslog->complaints();
    });
    for (QString const& complaint : std::as_const(complaints))
        logMessage(Warning, __FILE__, __LINE__, "%s", qUtf8Printable(complaint));
    for (LogThrottle::LeftOut const& one : _throttle.takeLeftOut(msNow()))
        writeLine(static_cast<Level>(one.level),
                  composeLine(static_cast<Level>(one.level), one.file, one.line,
                              QStringLiteral("%1 more lines from here were left out.").arg(one.count)));
    if (passesThrottle(level, file, line, format, args))
        writeLine(level, getQString(level, file, line, format, args));
}

void Logger::writeLine(Level level, QString const& text)
{
    _rollingFileLogger->log(text.toUtf8().constData());
    if (level > Warning) {
        QString hostname;
        {
            QMutexLocker locker(&_mutex);
            hostname = _hostname;
        }
        _syslog->send(hostname, text);
    }
}
