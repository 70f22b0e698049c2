#include "Playlist.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>

Logger* Playlist::log = LoggerManager::logger();

namespace
{

constexpr char16_t byteOrderMark = 0xFEFF;

/// What Windows-1252 has where Latin-1 has control characters, from 0x80 on; 0 where it has nothing.
constexpr std::array<char16_t, 32> windows1252 = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                                  0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

QString fromWindows1252(QByteArray const& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (c.unicode() >= 0x80 && c.unicode() < 0x80 + windows1252.size() && windows1252.at(c.unicode() - 0x80) != 0)
            c = QChar(windows1252.at(c.unicode() - 0x80));
    return text;
}

/// UTF-16 when there is a mark of it, or when a document begins with a character of ASCII in it.
std::optional<QStringConverter::Encoding> utf16Of(QByteArray const& bytes)
{
    if (bytes.size() < 2)
        return {};
    auto const first = static_cast<unsigned char>(bytes.at(0));
    auto const second = static_cast<unsigned char>(bytes.at(1));
    if ((first == 0xFF && second == 0xFE) || (first != 0 && second == 0))
        return QStringConverter::Utf16LE;
    if ((first == 0xFE && second == 0xFF) || (first == 0 && second != 0))
        return QStringConverter::Utf16BE;
    return {};
}

} // namespace

Playlist::Playlist(QString const& text, QObject* parent) : QObject(parent), _text(text) {}

QString Playlist::decode(QByteArray const& document)
{
    QStringDecoder decoder(utf16Of(document).value_or(QStringConverter::Utf8));
    bool const isUtf8 = !utf16Of(document);
    QString text = decoder(document);
    if (isUtf8 && decoder.hasError())
        text = fromWindows1252(document);
    if (text.startsWith(QChar(byteOrderMark)))
        text.remove(0, 1);
    return text;
}

bool Playlist::isFiltered(QString const& address)
{
    constexpr std::array endings = {"gif", "ani", "cur", "ico"};
    return std::any_of(endings.begin(), endings.end(), [&](char const* ending) {
        return address.endsWith(QLatin1String(ending), Qt::CaseInsensitive);
    });
}

void Playlist::addItem(PlaylistItem const& item)
{
    if (_items.size() >= maximumItems) {
        LOG_DEBUG("addItem(): more than %d entries.", static_cast<int>(maximumItems));
        return;
    }
    LOG_DEBUG("Adding Playlist Item");
    LOG_DEBUG("TITLE    : %s", qPrintable(item.title()));
    LOG_DEBUG("AUTHOR   : %s", qPrintable(item.author()));
    LOG_DEBUG("COPYRIGHT: %s", qPrintable(item.copyright()));
    for (QString const& url : item.urls())
        LOG_DEBUG("URL      : %s", qPrintable(url));
    LOG_DEBUG("REPEAT   : %d", item.repeat());
    _items.append(item);
}
