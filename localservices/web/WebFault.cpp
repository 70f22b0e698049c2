#include "WebFault.h"

#include <algorithm>

namespace
{
struct Form {
    char const* word;
    WebFault::Kind kind;
    int maximum; ///< Of the number behind it; 0 for one without.
};

constexpr Form forms[] = {
    {"silent", WebFault::Kind::Silent, 0},
    {"slow", WebFault::Kind::Slow, WebFault::maximumSlow},
    {"cut", WebFault::Kind::Cut, WebFault::maximumCut},
    {"xml", WebFault::Kind::Xml, 0},
    {"length", WebFault::Kind::Length, 0},
    {"fault", WebFault::Kind::SoapFault, 0},
};

bool readNumber(QString const& text, int least, int most, int& number)
{
    bool isNumber = false;
    number = text.toInt(&isNumber);
    return isNumber && number >= least && number <= most;
}

/// Takes the words apart behind the place.
QString readWhat(QStringList const& words, WebFault& fault)
{
    QString const what = words.value(0);
    if (readNumber(what, 300, 599, fault.number))
        return words.size() == 1 ? QString() : QStringLiteral("a status takes nothing more");
    for (Form const& form : forms) {
        if (what != QLatin1String(form.word))
            continue;
        fault.kind = form.kind;
        fault.text = form.kind == WebFault::Kind::SoapFault ? words.mid(1).join(' ') : QString();
        if (form.maximum > 0 && (words.size() != 2 || !readNumber(words.at(1), 0, form.maximum, fault.number)))
            return QStringLiteral("\"%1\" needs a number from 0 to %2").arg(what).arg(form.maximum);
        if (form.maximum == 0 && words.size() > 1 && fault.text.isEmpty())
            return QStringLiteral("\"%1\" takes nothing more").arg(what);
        return {};
    }
    return QStringLiteral(
               "\"%1\" is no fault; there are STATUS, silent, slow MS, cut BYTES, xml, length and fault [TEXT]")
        .arg(what);
}
} // namespace

std::optional<WebFault> WebFault::parse(QStringList words, QString& error)
{
    WebFault fault;
    qsizetype const last = words.size();
    if (last >= 4 && words.at(last - 2) == "times") {
        if (!readNumber(words.at(last - 1), 1, maximumTimes, fault.times)) {
            error = QStringLiteral("\"times %1\": a number from 1 to %2 is needed")
                        .arg(words.at(last - 1))
                        .arg(maximumTimes);
            return std::nullopt;
        }
        words = words.mid(0, last - 2);
    }
    fault.place = words.value(0);
    error = fault.place.isEmpty() ? QStringLiteral("a place is needed: \"*\", a path or a method")
                                  : readWhat(words.mid(1), fault);
    return error.isEmpty() ? std::optional(fault) : std::nullopt;
}

QString WebFault::toText() const
{
    QString line = place + ' ';
    if (kind == Kind::Status)
        line += QString::number(number);
    for (Form const& form : forms) {
        if (form.kind == kind)
            line += QLatin1String(form.word) + (form.maximum > 0 ? ' ' + QString::number(number) : QString());
    }
    line += text.isEmpty() ? QString() : ' ' + text;
    return times < 0 ? line : line + QStringLiteral(" times %1").arg(times);
}

bool WebFault::isAt(QString const& path, QString const& method) const
{
    return place == "*" || (place.startsWith('/') ? path.startsWith(place) : place == method);
}

void WebFaultPlan::add(WebFault const& fault)
{
    _faults.append(fault);
    if (_faults.size() > maximumFaults)
        _faults.removeFirst();
}

QStringList WebFaultPlan::toText() const
{
    QStringList lines;
    for (WebFault const& fault : _faults)
        lines.append("web fault " + fault.toText());
    return lines;
}

std::optional<WebFault> WebFaultPlan::take(QString const& path, QString const& method)
{
    auto const found =
        std::find_if(_faults.begin(), _faults.end(), [&](WebFault const& fault) { return fault.isAt(path, method); });
    if (found == _faults.end())
        return std::nullopt;
    WebFault const fault = *found;
    if (found->times > 0 && --found->times == 0)
        _faults.erase(found);
    return fault;
}
