#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QAction;

/// The letters by which the entries of a menu are chosen. Translations cannot see which entries stand together.
namespace Mnemonics
{

/// The same texts, each with a letter of its own marked: the one that is marked already for the first that has it,
/// otherwise the first letter of a word that is left, or any. Texts for which none is left have none.
QStringList unique(QStringList const& texts);

/// Does so with actions that stand in one menu; lines between them are none.
void makeUnique(QList<QAction*> const& actions);

} // namespace Mnemonics
