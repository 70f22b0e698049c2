#include "WebCommands.h"

#include "WebFault.h"
#include "WebServer.h"

namespace
{
constexpr int maximumGone = 3600; ///< Seconds.
}

QStringList WebCommands::help()
{
    return {
        QStringLiteral("web list                 ports, clients and what is to go wrong"),
        QStringLiteral("web fault PLACE WHAT [times COUNT]"),
        QStringLiteral(
            "                         makes answers go wrong; PLACE is \"*\", the beginning of a path or a method"),
        QStringLiteral(
            "                         of SOAP; WHAT: STATUS, silent, slow MS, cut BYTES, xml, length, fault [TEXT]"),
        QStringLiteral("web gone SECONDS         takes no connections for so long, and ends those that are there"),
        QStringLiteral("web certificate good|expired  the one that new clients get"),
        QStringLiteral("web drop                 closes its connections"),
        QStringLiteral("web clear                forgets the faults"),
    };
}

QString WebCommands::run(QStringList const& words, QStringList& lines)
{
    QString const what = words.value(0);
    QString error;
    if (what == "list") {
        for (WebServer const* const server : _parts.servers)
            lines.append(QStringLiteral("port %1, %2 clients").arg(server->port()).arg(server->connectionCount()));
        lines += _parts.faults.toText();
    } else if (what == "fault") {
        if (auto const fault = WebFault::parse(words.mid(1), error))
            _parts.faults.add(*fault);
    } else if (what == "clear") {
        _parts.faults.clear();
    } else if (what == "drop") {
        int dropped = 0;
        for (WebServer* const server : _parts.servers)
            dropped += server->drop();
        lines.append(QStringLiteral("%1 dropped").arg(dropped));
    } else if (what == "gone") {
        bool isNumber = false;
        int const seconds = words.value(1).toInt(&isNumber);
        if (!isNumber || seconds < 1 || seconds > maximumGone)
            return QStringLiteral("\"web gone %1\": seconds from 1 to %2 are needed")
                .arg(words.value(1))
                .arg(maximumGone);
        for (WebServer* const server : _parts.servers)
            server->goAway(seconds * 1000);
    } else if (what == "certificate" && (words.value(1) == "good" || words.value(1) == "expired")) {
        if (!_parts.renewCertificate(words.at(1) == "expired"))
            error = QStringLiteral("there is no port for TLS, or no certificate could be made");
    } else {
        error = QStringLiteral("\"web %1\": there are list, fault, gone, certificate good|expired, drop and clear")
                    .arg(words.join(' '));
    }
    return error;
}
