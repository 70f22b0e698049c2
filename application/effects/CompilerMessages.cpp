#include "CompilerMessages.h"

#include <QRegularExpression>

QList<CompilerMessage> compilerMessages(QString const& log)
{
    constexpr int mostMessages = 100;
    constexpr int longestText = 500;
    constexpr int longestLog = 64 << 10;
    static QRegularExpression const place(
        QStringLiteral("^(?:(?:ERROR|WARNING):\\s*)?\\d+(?::(\\d+)(?:\\(\\d+\\))?|\\((\\d+)\\))\\s*:\\s*(.*)$"),
        QRegularExpression::CaseInsensitiveOption);
    QList<CompilerMessage> messages;
    for (QString const& line : log.left(longestLog).split('\n', Qt::SkipEmptyParts)) {
        if (messages.size() >= mostMessages)
            break;
        if (line.trimmed().isEmpty())
            continue;
        QRegularExpressionMatch const match = place.match(line.trimmed().left(longestText));
        CompilerMessage message;
        message.text = match.hasMatch() ? match.captured(3) : line.trimmed().left(longestText);
        message.line = match.captured(1).isEmpty() ? match.captured(2).toInt() : match.captured(1).toInt();
        message.isWarning = line.contains(QLatin1String("warning"), Qt::CaseInsensitive);
        messages.append(message);
    }
    return messages;
}
