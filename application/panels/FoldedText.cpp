#include "FoldedText.h"

#include <algorithm>

namespace
{

/// The letters for one that no decomposition leads to.
char const* plainLetters(QChar letter)
{
    switch (letter.unicode()) {
    case 0x00E6:
        return "ae";
    case 0x00F0:
    case 0x0111:
        return "d";
    case 0x00F8:
        return "o";
    case 0x00FE:
        return "th";
    case 0x0131:
        return "i";
    case 0x0142:
        return "l";
    case 0x0153:
        return "oe";
    default:
        return nullptr;
    }
}

bool isPlain(QString const& text)
{
    return std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c < QChar(0x80); });
}

} // namespace

QString FoldedText::fold(QString const& text)
{
    QString const start = text.left(maximumLength);
    if (isPlain(start))
        return start.toLower();
    QString folded;
    folded.reserve(start.size());
    for (QChar const c : start.normalized(QString::NormalizationForm_KD).toCaseFolded()) {
        if (c.isMark())
            continue;
        if (char const* const letters = plainLetters(c))
            folded += QLatin1String(letters);
        else
            folded += c;
    }
    return folded.left(maximumLength);
}

/// Each number begins with how many digits it has.
QString FoldedText::sortKey(QString const& folded)
{
    QString key;
    key.reserve(folded.size() + 4);
    for (qsizetype i = 0; i < folded.size();) {
        if (folded.at(i) < '0' || folded.at(i) > '9') {
            key += folded.at(i++);
            continue;
        }
        qsizetype end = i;
        while (end < folded.size() && folded.at(end) >= '0' && folded.at(end) <= '9')
            ++end;
        while (i + 1 < end && folded.at(i) == '0')
            ++i;
        key += QChar(static_cast<char16_t>('0' + std::min<qsizetype>(end - i, 9)));
        key += QStringView(folded).mid(i, end - i);
        i = end;
    }
    return key;
}

QStringList FoldedText::words(QString const& typed)
{
    return fold(typed.simplified()).split(' ', Qt::SkipEmptyParts);
}

bool FoldedText::hasAll(QString const& folded, QStringList const& words)
{
    return std::all_of(words.cbegin(), words.cend(), [&](QString const& word) { return folded.contains(word); });
}
