#include "BiscottiTopic.h"

#include <algorithm>

namespace
{

bool isLevelCharacter(QChar character)
{
    char16_t const code = character.unicode();
    return (code >= u'a' && code <= u'z') || (code >= u'0' && code <= u'9') || code == u'-' || code == u'_';
}

/// The character in lower case as far as topics can hold it.
///
/// One letter has two characters in lower case, which QChar::toLower() does not give: the I with a dot above, an i
/// and a dot that combines. QString::toLower() does, but takes quadratic time on many of them.
QChar toLower(QChar character)
{
    return character == QChar(0x130) ? QChar(u'i') : character.toLower();
}

} // namespace

QStringList BiscottiTopic::split() const
{
    return _text.split(Delimiter(), Qt::SkipEmptyParts);
}

QString BiscottiTopic::last() const
{
    return isNull() || isRoot() ? QString() : _text.mid(_text.lastIndexOf(Delimiter()) + 1);
}

BiscottiTopic BiscottiTopic::append(QString const& text) const
{
    if (isNull() && normalise(text).isEmpty())
        return {};
    return BiscottiTopic(_text + Delimiter() + text);
}

bool BiscottiTopic::matches(BiscottiTopic const& other) const
{
    if (isNull() || other.isNull())
        return false;
    if (isRoot() || other.isRoot())
        return true;
    bool const isShorter = _text.size() < other._text.size();
    QString const& above = isShorter ? _text : other._text;
    QString const& below = isShorter ? other._text : _text;
    return below.startsWith(above) && (below.size() == above.size() || below.at(above.size()) == Delimiter());
}

QString BiscottiTopic::normalise(QString const& text)
{
    // Most texts come from other topics; those stay shared.
    if (isNormal(text))
        return text;
    QString normal;
    normal.reserve(text.size() + 1);
    for (QChar const character : text) {
        QChar const lower = toLower(character);
        bool const isDelimiter = lower == Delimiter();
        if (!isDelimiter && !isLevelCharacter(lower))
            continue;
        if (normal.isEmpty())
            normal.append(Delimiter());
        if (!isDelimiter || normal.back() != Delimiter())
            normal.append(lower);
    }
    if (normal.size() > 1 && normal.back() == Delimiter())
        normal.chop(1);
    normal.squeeze();
    return normal;
}

bool BiscottiTopic::isNormal(QStringView text)
{
    if (text.size() < 2)
        return text.isEmpty() || text.front() == Delimiter();
    if (text.front() != Delimiter() || text.back() == Delimiter())
        return false;
    QChar previous;
    return std::all_of(text.begin(), text.end(), [&previous](QChar character) {
        bool const isAllowed = character == Delimiter() ? previous != Delimiter() : isLevelCharacter(character);
        previous = character;
        return isAllowed;
    });
}
