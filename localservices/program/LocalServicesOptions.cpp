#include "LocalServicesOptions.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <functional>

namespace
{
/// A switch of the command line. With a value it is written "--name VALUE" or "--name=VALUE".
struct Switch {
    char const* name;
    bool hasValue;
    std::function<QString(LocalServicesOptions&, QString const&)> apply; ///< Returns an error, or nothing.
};

QString setPort(LocalServicesOptions::Port& port, QString const& value)
{
    bool isNumber = false;
    int const number = value.toInt(&isNumber);
    if (value == "none")
        port.reset();
    else if (isNumber && number >= 0 && number <= 65535)
        port = static_cast<quint16>(number);
    else
        return QStringLiteral("a port from 1 to 65535 is needed, 0 for a free one, or \"none\"");
    return {};
}

QString setNumber(double& number, QString const& value, double maximum)
{
    bool isNumber = false;
    double const given = value.toDouble(&isNumber);
    if (!isNumber || !(given >= 0 && given <= maximum))
        return QStringLiteral("a number from 0 to %1 is needed").arg(maximum);
    number = given;
    return {};
}

/// "/NAME=FILE"; a name that is there already gets one file more.
QString addFile(QList<LocalServicesOptions::Stream>& streams, QString const& value)
{
    qsizetype const equals = value.indexOf('=');
    QString name = value.left(equals);
    QString const file = value.mid(equals + 1);
    if (!name.startsWith('/'))
        name.prepend('/');
    if (equals < 0 || name.size() < 2 || file.isEmpty() || name.contains('?') || name.contains(' '))
        return QStringLiteral("a stream looks like /live=film.asf");
    auto const same = [&](LocalServicesOptions::Stream const& stream) { return stream.name == name; };
    auto const found = std::find_if(streams.begin(), streams.end(), same);
    if (found != streams.end())
        found->files.append(file);
    else
        streams.append({name, {file}});
    return {};
}

QString addStream(LocalServicesOptions& options, QString const& value)
{
    return addFile(options.streams, value);
}

QString setWebPort(LocalServicesOptions& options, QString const& value)
{
    options.isWebPortGiven = true;
    return setPort(options.webPort, value);
}

QString setWebTlsPort(LocalServicesOptions& options, QString const& value)
{
    options.isWebPortGiven = true;
    return setPort(options.webTlsPort, value);
}

QString setRtsp(LocalServicesOptions& options, QString const& value)
{
    static QRegularExpression const form(QStringLiteral("^[A-Za-z0-9.-]{1,253}:[0-9]{1,5}/[^\\s]+$"));
    options.rtsp = value;
    return form.match(value).hasMatch() ? QString()
                                        : QStringLiteral("an address such as 127.0.0.1:8554/live is needed");
}

template<int LocalServicesOptions::*number, int maximum>
QString setWhole(LocalServicesOptions& options, QString const& value)
{
    double given = 0;
    QString const error = setNumber(given, value, maximum);
    options.*number = static_cast<int>(given);
    return error;
}

QString addDebug(LocalServicesOptions& options, QString const& value)
{
    options.debug = true;
    options.debugClasses += value.split(',', Qt::SkipEmptyParts);
    return {};
}

QString setBiscottiPort(LocalServicesOptions& options, QString const& value)
{
    options.isBiscottiPortGiven = true;
    return setPort(options.biscottiPort, value);
}

std::array<Switch, 24> const& switches()
{
    using Options = LocalServicesOptions;
    static std::array<Switch, 24> const all = {{
        {"listen", true,
         [](Options& o, QString const& v) {
             return o.address.setAddress(v) ? QString() : QStringLiteral("an address such as 127.0.0.1 is needed");
         }},
        {"mms-http-port", true, [](Options& o, QString const& v) { return setPort(o.mmsHttpPort, v); }},
        {"mms-tcp-port", true, [](Options& o, QString const& v) { return setPort(o.mmsTcpPort, v); }},
        {"control-port", true, [](Options& o, QString const& v) { return setPort(o.controlPort, v); }},
        {"biscotti-port", true, setBiscottiPort},
        {"biscotti", true,
         [](Options& o, QString const& v) { return o.commands.append("biscotti " + v), QString(); }},
        {"web-port", true, setWebPort},
        {"web-tls-port", true, setWebTlsPort},
        {"database", true, [](Options& o, QString const& v) { return o.database = v, QString(); }},
        {"certificate-file", true, [](Options& o, QString const& v) { return o.certificateFile = v, QString(); }},
        {"max-age", true, setWhole<&Options::maximumAge, Options::maximumAgeAtMost>},
        {"no-seeds", false, [](Options& o, QString const&) { return o.hasSeeds = false, QString(); }},
        {"rtsp", true, setRtsp},
        {"hls", true, [](Options& o, QString const& v) { return addFile(o.hls, v); }},
        {"ports-file", true, [](Options& o, QString const& v) { return o.portsFile = v, QString(); }},
        {"stream", true, addStream},
        {"burst", true,
         [](Options& o, QString const& v) { return setNumber(o.burstSeconds, v, Options::maximumBurst); }},
        {"dead-entries", true, setWhole<&Options::deadEntries, Options::maximumDeadEntries>},
        {"fault", true, [](Options& o, QString const& v) { return o.commands.append("fault " + v), QString(); }},
        {"rate", true, [](Options& o, QString const& v) { return o.commands.append("rate " + v), QString(); }},
        {"silent", false, [](Options& o, QString const&) { return o.commands.append("silence on"), QString(); }},
        {"debug", false, addDebug},
        {"help", false, [](Options& o, QString const&) { return o.showHelp = true, QString(); }},
        {"version", false, [](Options& o, QString const&) { return o.showVersion = true, QString(); }},
    }};
    return all;
}
} // namespace

std::optional<LocalServicesOptions> LocalServicesOptions::parse(QStringList const& arguments, QString& error)
{
    LocalServicesOptions options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        QString const& argument = arguments.at(i);
        QString const name = argument.startsWith("--") ? argument.mid(2).section('=', 0, 0) : QString();
        auto const known = std::find_if(switches().begin(), switches().end(),
                                        [&](Switch const& one) { return name == QLatin1String(one.name); });
        if (known == switches().end()) {
            error = QStringLiteral("unknown option %1; see --help").arg(argument);
            return std::nullopt;
        }
        bool const hasEquals = argument.contains('=');
        QString value = hasEquals ? argument.section('=', 1) : QString();
        if (known->hasValue && !hasEquals) {
            if (i + 1 == arguments.size()) {
                error = QStringLiteral("%1 needs a value; see --help").arg(argument);
                return std::nullopt;
            }
            value = arguments.at(++i);
        }
        if (QString const why = known->apply(options, value); !why.isEmpty()) {
            error = QStringLiteral("--%1 %2: %3").arg(name, value, why);
            return std::nullopt;
        }
    }
    return options;
}

QString LocalServicesOptions::usualDatabase()
{
    return QDir::homePath() + "/.Ombravision/LocalServices.sqlite";
}
