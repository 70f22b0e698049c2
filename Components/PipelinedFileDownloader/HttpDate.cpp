#include "HttpDate.h"

#include <QLocale>

namespace
{
QString const format = QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'");
} // namespace

QString HttpDate::toString(QDateTime const& date)
{
    return QLocale::c().toString(date.toUTC(), format);
}

QDateTime HttpDate::parse(QString const& text)
{
    QDateTime date = QLocale::c().toDateTime(text.trimmed(), format);
    date.setTimeSpec(Qt::UTC);
    return date;
}
