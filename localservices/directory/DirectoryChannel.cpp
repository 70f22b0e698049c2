#include "DirectoryChannel.h"

#include <QRegularExpression>

QString DirectoryChannel::field(char const* name) const
{
    QString const key = QString::fromLatin1(name);
    ChannelField const* const known = ChannelField::find(key);
    return fields.value(key, known ? QString::fromLatin1(known->initial) : QString());
}

QString DirectoryChannel::fault() const
{
    static QRegularExpression const uri(
        QStringLiteral(R"(^(\{(mms-http|mms-tcp|web|rtsp)\}/|(mms|mmsh|mmst|http|https|rtsp)://)[^\s"<>]+$)"));
    if (!isId(id))
        return QStringLiteral("\"%1\" is no id: up to %2 letters, digits, \"-\" and \"_\" are")
            .arg(id)
            .arg(longestId);
    if (field("name").trimmed().isEmpty())
        return QStringLiteral("a channel needs a name");
    if (uris.size() > maximumStreams)
        return QStringLiteral("a channel has at most %1 streams").arg(maximumStreams);
    for (QString const& one : uris) {
        if (one.size() > ChannelField::longest || !uri.match(one).hasMatch())
            return QStringLiteral("\"%1\" is no address of a stream, such as mms://host/live or {mms-http}/live")
                .arg(one);
    }
    for (auto each = fields.begin(); each != fields.end(); ++each) {
        ChannelField const* const known = ChannelField::find(each.key());
        if (!known)
            return QStringLiteral("\"%1\" is no field of a channel").arg(each.key());
        if (QString const why = known->faultOf(each.value()); !why.isEmpty())
            return why;
    }
    return {};
}

bool DirectoryChannel::isId(QString const& text)
{
    static QRegularExpression const form(QStringLiteral("^[A-Za-z0-9_-]{1,%1}$").arg(longestId));
    return form.match(text).hasMatch();
}
