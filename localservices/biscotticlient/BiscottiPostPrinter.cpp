#include "BiscottiPostPrinter.h"

#include <QStringList>

QByteArray BiscottiPostPrinter::line(BiscottiPost const& post, QDateTime const& arrival)
{
    QStringList topics;
    for (BiscottiTopic const& topic : post.topics())
        topics.append(topic.toString());
    QDateTime const time = post.sendUtc().isValid() ? post.sendUtc() : arrival;
    QString const sender = post.senderName().isEmpty() ? post.senderId() : post.senderName();
    QString text = time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + u' ' + topics.join(u',');
    if (!sender.isEmpty())
        text += u' ' + escaped(sender) + u':';
    return (text + u' ' + escaped(QString::fromUtf8(post.body()))).toUtf8() + '\n';
}

QString BiscottiPostPrinter::escaped(QString const& text)
{
    QString result;
    result.reserve(text.size());
    for (QChar const character : text) {
        ushort const code = character.unicode();
        if (character == u'\\')
            result += QLatin1String("\\\\");
        else if (character.isPrint() || character.isSurrogate())
            result += character;
        else if (character == u'\n')
            result += QLatin1String("\\n");
        else if (character == u'\t')
            result += QLatin1String("\\t");
        else if (code < 0x100)
            result += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        else
            result += QStringLiteral("\\u%1").arg(code, 4, 16, QLatin1Char('0'));
    }
    return result;
}
