#include "ChannelTitle.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace
{

bool isVisible(char32_t character)
{
    return QChar::isPrint(character) && !QChar::isSpace(character) &&
           QChar::category(character) != QChar::Other_Format;
}

} // namespace

QString ChannelTitle::shown(QString const& title, qsizetype longest)
{
    QString const front = title.left(longest);
    auto const characters = front.toUcs4();
    if (std::none_of(characters.cbegin(), characters.cend(), isVisible))
        return QCoreApplication::translate("ChannelTitle", "Unnamed channel");
    if (title.size() <= longest)
        return title;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, front + title.at(longest));
    letters.setPosition(longest);
    if (!letters.isAtBoundary() && letters.toPreviousBoundary() <= 0)
        letters.setPosition(longest); // All of it is one letter with its marks.
    return front.left(letters.position()) + QChar(0x2026);
}
