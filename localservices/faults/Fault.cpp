#include "Fault.h"

#include <array>
#include <utility>

namespace
{
constexpr std::array stepNames = {"any",     "describe", "play", "select", "log",    "stop", "connect",
                                  "measure", "funnel",   "open", "read",   "switch", "start"};

/// The number after a keyword at the end of the words, which are both taken away.
std::optional<QString> takeOption(QStringList& words, QString const& keyword)
{
    qsizetype const place = words.indexOf(keyword);
    if (place < 1 || place + 1 >= words.size())
        return std::nullopt;
    QString const value = words.takeAt(place + 1);
    words.removeAt(place);
    return value;
}

bool parseWhat(QStringList const& words, Fault& fault, QString& error)
{
    QString const what = words.value(0);
    bool isNumber = false;
    if (what.startsWith("0x")) {
        fault.kind = Fault::Kind::Result;
        fault.result = what.toUInt(&isNumber, 16);
        if (!isNumber || words.size() > 1)
            error = QStringLiteral("\"%1\" is no result; one looks like 0xC00D0030").arg(words.join(' '));
        return error.isEmpty();
    }
    fault.status = what.toInt(&isNumber);
    if (isNumber) {
        fault.location = words.value(1);
        bool const redirects = fault.status >= 300 && fault.status < 400;
        if (fault.status != 204 && (fault.status < 300 || fault.status > 599))
            error = QStringLiteral("%1 is no status that can be sent; 204 and 300 to 599 can").arg(fault.status);
        else if (redirects == fault.location.isEmpty() || words.size() > 2)
            error = redirects ? QStringLiteral("%1 needs the location to go to").arg(fault.status)
                              : QStringLiteral("%1 takes no location").arg(fault.status);
        return error.isEmpty();
    }
    if ((what == "silent" || what == "reset") && words.size() == 1) {
        fault.kind = what == "silent" ? Fault::Kind::Silent : Fault::Kind::Reset;
        return true;
    }
    if (what == "cut" && words.size() == 2) {
        QString const where = words.at(1);
        fault.kind = where == "header"   ? Fault::Kind::CutHeader
                     : where == "packet" ? Fault::Kind::CutPacket
                                         : Fault::Kind::CutBytes;
        fault.bytes = where.toLongLong(&isNumber);
        if (fault.kind != Fault::Kind::CutBytes || (isNumber && fault.bytes >= 0))
            return true;
        error = QStringLiteral("\"cut %1\": a number of bytes, \"header\" or \"packet\" is needed").arg(where);
        return false;
    }
    error = QStringLiteral(
                "\"%1\" is no fault; there are STATUS [LOCATION], 0xRESULT, silent, reset, cut BYTES, cut header "
                "and cut packet")
                .arg(words.join(' '));
    return false;
}
} // namespace

std::optional<Fault> Fault::parse(QStringList words, QString& error)
{
    Fault fault;
    if (std::optional<QString> const times = takeOption(words, QStringLiteral("times"))) {
        bool isNumber = false;
        fault.times = times->toInt(&isNumber);
        if (!isNumber || fault.times < 1 || fault.times > maximumTimes) {
            error = QStringLiteral("\"times %1\": a number from 1 to %2 is needed").arg(*times).arg(maximumTimes);
            return std::nullopt;
        }
    }
    if (std::optional<QString> const name = takeOption(words, QStringLiteral("on"))) {
        std::optional<Step> const step = stepOf(*name);
        if (!step) {
            QStringList names(stepNames.begin(), stepNames.end());
            error = QStringLiteral("\"on %1\": there are %2").arg(*name, names.join(QStringLiteral(", ")));
            return std::nullopt;
        }
        fault.step = *step;
    }
    if (!parseWhat(words, fault, error))
        return std::nullopt;
    return fault;
}

QString Fault::toText() const
{
    QString text;
    switch (kind) {
    case Kind::Status:
        text = QString::number(status) + (location.isEmpty() ? QString() : ' ' + location);
        break;
    case Kind::Result:
        text = QStringLiteral("0x%1").arg(QString::number(result, 16).toUpper().rightJustified(8, '0'));
        break;
    case Kind::Silent:
        text = QStringLiteral("silent");
        break;
    case Kind::Reset:
        text = QStringLiteral("reset");
        break;
    case Kind::CutBytes:
        text = QStringLiteral("cut %1").arg(bytes);
        break;
    case Kind::CutHeader:
        text = QStringLiteral("cut header");
        break;
    case Kind::CutPacket:
        text = QStringLiteral("cut packet");
        break;
    }
    if (step != Step::Any)
        text += QStringLiteral(" on ") + nameOf(step);
    if (times >= 0)
        text += QStringLiteral(" times %1").arg(times);
    return text;
}

std::optional<Fault::Step> Fault::stepOf(QString const& name)
{
    for (size_t i = 0; i < stepNames.size(); ++i) {
        if (name == QLatin1String(stepNames[i]))
            return static_cast<Step>(i);
    }
    return std::nullopt;
}

QString Fault::nameOf(Step step)
{
    return QString::fromLatin1(stepNames[static_cast<size_t>(step)]);
}

QByteArray Fault::reasonOf(int status)
{
    static constexpr std::array<std::pair<int, char const*>, 20> reasons = {{
        {200, "OK"},
        {204, "No Content"},
        {301, "Moved Permanently"},
        {302, "Found"},
        {304, "Not Modified"},
        {307, "Temporary Redirect"},
        {400, "Bad Request"},
        {401, "Unauthorized"},
        {403, "Forbidden"},
        {404, "Not Found"},
        {405, "Method Not Allowed"},
        {407, "Proxy Authentication Required"},
        {408, "Request Timeout"},
        {411, "Length Required"},
        {413, "Content Too Large"},
        {415, "Unsupported Media Type"},
        {431, "Request Header Fields Too Large"},
        {453, "Not Enough Bandwidth"},
        {500, "Internal Server Error"},
        {503, "Service Unavailable"},
    }};
    for (auto const& [known, reason] : reasons) {
        if (known == status)
            return reason;
    }
    return status < 400 ? "Redirection" : status < 500 ? "Client Error" : "Server Error";
}
