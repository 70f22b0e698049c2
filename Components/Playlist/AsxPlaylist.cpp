#include "AsxPlaylist.h"

#include "Logger.h"
#include "XmlCheck.h"

#include <QDomDocument>
#include <QRegularExpression>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace
{

/// Lowers the names in the tags of a text, and leaves what is between quotation marks as it is. Linear, whatever the
/// text: a mark that is missing is looked for only once.
class NameLowerer
{
public:
    explicit NameLowerer(QString const& text) : _text(text) {}

    QString lowered()
    {
        while ((_position = _text.indexOf(u'<', _position)) >= 0) {
            if (!skip("<!--", "-->", _hasCommentEnd) && !skip("<![CDATA[", "]]>", _hasDataEnd))
                lowerTag();
        }
        return std::move(_text);
    }

private:
    bool skip(char const* begin, char const* end, bool& hasEnd)
    {
        if (!hasEnd || !QStringView(_text).sliced(_position).startsWith(QLatin1String(begin)))
            return false;
        qsizetype const found = _text.indexOf(QLatin1String(end), _position);
        hasEnd = found >= 0;
        _position = hasEnd ? found : _position;
        return hasEnd;
    }

    void lowerTag()
    {
        for (++_position; _position < _text.size() && _text.at(_position) != u'>'; ++_position) {
            QChar const c = _text.at(_position);
            if ((c == u'"' && skipQuotes(c, _hasDoubleQuote)) || (c == u'\'' && skipQuotes(c, _hasSingleQuote)))
                continue;
            if (c >= u'A' && c <= u'Z')
                _text[_position] = c.toLower();
        }
    }

    bool skipQuotes(QChar quote, bool& hasQuote)
    {
        qsizetype const end = hasQuote ? _text.indexOf(quote, _position + 1) : -1;
        hasQuote = end >= 0;
        _position = hasQuote ? end : _position;
        return hasQuote;
    }

    QString _text;
    qsizetype _position = 0;
    bool _hasCommentEnd = true;
    bool _hasDataEnd = true;
    bool _hasDoubleQuote = true;
    bool _hasSingleQuote = true;
};

/// Whether an "&" before this text is not a bare one, but begins one of the references that XML itself knows.
bool beginsReference(QStringView text)
{
    static QStringList const names = {"amp", "lt", "gt", "quot", "apos"};
    constexpr qsizetype maximumDigits = 6;
    qsizetype const end = text.first(std::min<qsizetype>(text.size(), maximumDigits + 3)).indexOf(u';');
    if (end < 0)
        return false;
    QStringView const name = text.first(end);
    if (!name.startsWith(u'#'))
        return names.contains(name);
    bool const isHex = name.startsWith(QStringLiteral("#x"));
    uint const code = name.sliced(isHex ? 2 : 1).toUInt(nullptr, isHex ? 16 : 10);
    return code >= ' ' && code < 0xD800; // The rest would only make the document unreadable.
}

} // namespace

void AsxPlaylist::parse()
{
    clearItems();
    _base.clear();
    if (text().size() > maximumLength) {
        LOG_WARNING("parse(): a playlist of %lld characters is too long.", static_cast<long long>(text().size()));
        return;
    }
    QString const xml = escapeAmpersands(lowerNames(text().trimmed()));
    if (QString const fault = XmlCheck::faultOf(xml); !fault.isEmpty()) {
        LOG_WARNING("parse(): the playlist cannot be read: %s.", qPrintable(fault));
        return;
    }
    QDomDocument document;
    QString fault;
    if (!document.setContent(xml, &fault)) {
        LOG_WARNING("parse(): the playlist cannot be read: %s.", qPrintable(fault));
        return;
    }
    if (document.documentElement().tagName() != "asx") {
        LOG_WARNING("parse(): the playlist begins with \"%s\".", qPrintable(document.documentElement().tagName()));
        return;
    }
    parseEntries(document.documentElement(), 1);
}

QString AsxPlaylist::lowerNames(QString const& text)
{
    return NameLowerer(text).lowered();
}

QString AsxPlaylist::escapeAmpersands(QString const& text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        escaped.append(text.at(i));
        if (text.at(i) == u'&' && !beginsReference(QStringView(text).sliced(i + 1)))
            escaped.append("amp;");
    }
    return escaped;
}

void AsxPlaylist::parseEntries(QDomElement const& parent, int repeat)
{
    QString const outerBase = _base;
    for (QDomElement child = parent.firstChildElement(); !child.isNull(); child = child.nextSiblingElement()) {
        QString const name = child.tagName();
        if (name == "entry") {
            parseEntry(child, repeat);
        } else if (name == "entryref") {
            PlaylistItem item;
            item.setRepeat(repeat);
            addAddress(child, item);
            addItem(item);
        } else if (name == "repeat") {
            parseEntries(child, std::max(child.attribute("count").toInt(), 1));
        } else if (name == "event") {
            parseEntries(child, repeat);
        } else if (name == "base") {
            _base = child.attribute("href").trimmed();
        }
    }
    _base = outerBase;
}

void AsxPlaylist::parseEntry(QDomElement const& entry, int repeat)
{
    QString const outerBase = _base;
    PlaylistItem item;
    item.setRepeat(repeat);
    item.setSkippable(entry.attribute("clientskip").compare("yes", Qt::CaseInsensitive) == 0);
    for (QDomElement child = entry.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        parseEntryChild(child, item);
    _base = outerBase;
    addItem(item);
}

void AsxPlaylist::parseEntryChild(QDomElement const& child, PlaylistItem& item)
{
    QString const name = child.tagName();
    if (name == "title")
        item.setTitle(child.text().trimmed());
    else if (name == "author")
        item.setAuthor(child.text().trimmed());
    else if (name == "copyright")
        item.setCopyright(child.text().trimmed());
    else if (name == "album")
        item.setAlbum(child.text().trimmed());
    else if (name == "abstract")
        item.setAbstract(child.text().trimmed());
    else if (name == "banner")
        item.setBanner(child.attribute("href").trimmed());
    else if (name == "base")
        _base = child.attribute("href").trimmed();
    else if (name == "ref")
        addAddress(child, item);
    else if (name == "duration")
        item.setDuration(timeOf(child));
    else if (name == "startmarker")
        item.setStartMarker(timeOf(child));
    else if (name == "starttime")
        item.setStartTime(timeOf(child));
    else if (name == "endmarker")
        item.setEndMarker(timeOf(child));
    else if (name == "previewduration")
        item.setPreviewDuration(timeOf(child));
}

void AsxPlaylist::addAddress(QDomElement const& element, PlaylistItem& item) const
{
    QString address = element.attribute("href").trimmed();
    if (address.isEmpty() || isFiltered(address))
        return;
    QUrl const base(_base);
    QUrl const relative(address);
    bool const isUsableBase = base.isValid() && !base.isRelative() && !base.host().isEmpty();
    if (isUsableBase && relative.isValid() && relative.isRelative()) {
        QUrl const resolved = base.resolved(relative);
        address = resolved.isValid() ? resolved.toString(QUrl::FullyEncoded) : address;
    }
    item.addUrl(address);
}

/// The attribute "value", "h:m:s.z", of which hours and minutes may be missing, in ms.
qint64 AsxPlaylist::timeOf(QDomElement const& element)
{
    static QRegularExpression const form(
        "^\\s*(?:(?:(\\d{1,6}):)?(\\d{1,6}):)?(\\d{1,6})(?:\\.(\\d{1,3})\\d*)?\\s*$");
    QRegularExpressionMatch const match = form.match(element.attribute("value"));
    if (!match.hasMatch())
        return PlaylistItem::unknownTime;
    qint64 const seconds =
        (match.captured(1).toLongLong() * 60 + match.captured(2).toLongLong()) * 60 + match.captured(3).toLongLong();
    return seconds * 1000 + match.captured(4).leftJustified(3, '0').toLongLong();
}
