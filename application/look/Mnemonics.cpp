#include "Mnemonics.h"

#include <QAction>
#include <QSet>

namespace
{

/// The place of the letter that a lone ampersand marks, -1 without one.
qsizetype markedPlace(QString const& text)
{
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != '&')
            continue;
        if (text.at(i + 1) != '&')
            return i + 1;
        ++i;
    }
    return -1;
}

QList<qsizetype> placesToMark(QString const& text)
{
    QList<qsizetype> first;
    QList<qsizetype> others;
    for (qsizetype i = 0; i < text.size(); ++i)
        if (text.at(i).isLetterOrNumber())
            (i == 0 || text.at(i - 1).isSpace() ? first : others).append(i);
    return first + others;
}

QString mark(QString text, QSet<QChar>& taken)
{
    if (qsizetype const old = markedPlace(text); old > 0)
        text.remove(old - 1, 1);
    for (qsizetype const place : placesToMark(text)) {
        QChar const letter = text.at(place).toUpper();
        if (taken.contains(letter))
            continue;
        taken.insert(letter);
        return text.insert(place, '&');
    }
    return text;
}

} // namespace

QStringList Mnemonics::unique(QStringList const& texts)
{
    QSet<QChar> taken;
    QStringList result = texts;
    QList<qsizetype> left;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        qsizetype const place = markedPlace(texts.at(i));
        QChar const letter = place < 0 ? QChar() : texts.at(i).at(place).toUpper();
        if (place < 0 || taken.contains(letter))
            left.append(i);
        else
            taken.insert(letter);
    }
    for (qsizetype const i : left)
        result[i] = mark(texts.at(i), taken);
    return result;
}

void Mnemonics::makeUnique(QList<QAction*> const& actions)
{
    QList<QAction*> entries;
    QStringList texts;
    for (QAction* const action : actions)
        if (!action->isSeparator()) {
            entries.append(action);
            texts.append(action->text());
        }
    QStringList const marked = unique(texts);
    for (qsizetype i = 0; i < entries.size(); ++i)
        entries.at(i)->setText(marked.at(i));
}
