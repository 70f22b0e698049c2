#include "CentralisedBiscottiGreeting.h"

#include <QRegularExpression>
#include <QRegularExpressionMatch>

namespace
{

QRegularExpressionMatch matchMaxDataWait(QString const& notes)
{
    static QRegularExpression const expression(QStringLiteral("MDWMS=(\\d+)"));
    return expression.match(notes);
}

std::optional<CentralisedBiscottiVersion> version(QString const& majorText, QString const& minorText)
{
    bool isMajorGood = false;
    bool isMinorGood = false;
    CentralisedBiscottiVersion const result(majorText.toInt(&isMajorGood), minorText.toInt(&isMinorGood));
    return isMajorGood && isMinorGood ? std::optional(result) : std::nullopt;
}

} // namespace

CentralisedBiscottiGreeting::CentralisedBiscottiGreeting(CentralisedBiscottiVersion const& protocolVersion,
                                                         CentralisedBiscottiVersion const& messageVersion,
                                                         QString const& notes)
    : _protocolVersion(protocolVersion), _messageVersion(messageVersion), _notes(notes.trimmed())
{
}

std::optional<CentralisedBiscottiGreeting> CentralisedBiscottiGreeting::fromLine(QByteArray const& line)
{
    static QRegularExpression const expression(QStringLiteral("^~@\\s+(\\d+)\\.(\\d+)\\s+(\\d+)\\.(\\d+)\\s+(.*)$"));
    if (line.size() > maximumLineBytes)
        return std::nullopt;
    QRegularExpressionMatch const match = expression.match(QString::fromLatin1(line));
    if (!match.hasMatch())
        return std::nullopt;
    auto const protocolVersion = version(match.captured(1), match.captured(2));
    auto const messageVersion = version(match.captured(3), match.captured(4));
    if (!protocolVersion || !messageVersion)
        return std::nullopt;
    return CentralisedBiscottiGreeting(*protocolVersion, *messageVersion, match.captured(5));
}

QByteArray CentralisedBiscottiGreeting::toLine() const
{
    QString const line = QLatin1String(BakeryMagicNumber) + u' ' + _protocolVersion.toString() + u' ' +
                         _messageVersion.toString() + u' ' + _notes + u'\n';
    return line.toLatin1();
}

bool CentralisedBiscottiGreeting::hasMaxDataWait() const
{
    return matchMaxDataWait(_notes).hasMatch();
}

std::optional<qint64> CentralisedBiscottiGreeting::maxDataWaitMs() const
{
    bool isGood = false;
    qint64 const milliseconds = matchMaxDataWait(_notes).captured(1).toLongLong(&isGood);
    return isGood ? std::optional(milliseconds) : std::nullopt;
}
