#include "RefPlaylist.h"

#include "Logger.h"

#include <QStringView>

namespace
{

/// The address that a line gives, or nothing.
QStringView addressOf(QStringView line)
{
    qsizetype const sign = line.indexOf(u'=');
    QStringView const value = sign < 0 ? QStringView() : line.sliced(sign + 1).trimmed();
    return value.startsWith(QStringLiteral("http"), Qt::CaseInsensitive) ? value : QStringView();
}

} // namespace

void RefPlaylist::parse()
{
    clearItems();
    if (text().size() > maximumLength) {
        LOG_WARNING("parse(): a playlist of %lld characters is too long.", static_cast<long long>(text().size()));
        return;
    }
    QString const whole = text();
    PlaylistItem item;
    bool isInSection = false;
    for (QStringView line : QStringView(whole).tokenize(u'\n')) {
        line = line.trimmed();
        if (line.startsWith(u'['))
            isInSection = line.compare(QStringLiteral("[Reference]"), Qt::CaseInsensitive) == 0;
        else if (QStringView const address = isInSection ? addressOf(line) : QStringView(); !address.isEmpty())
            if (QString const url = address.toString(); !isFiltered(url))
                item.addUrl(url);
    }
    if (!item.urls().isEmpty())
        addItem(item);
}
