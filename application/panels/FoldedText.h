#pragma once

#include <QString>
#include <QStringList>

/// Texts made ready to be compared many times: once folded, a comparison looks at code units alone. No state; any
/// thread.
namespace FoldedText
{

/// What is longer is cut: nobody types more than that, and nobody reads it in a row.
inline constexpr qsizetype maximumLength = 512;

/// Without case, accents and other marks, and with letters that have no decomposition as those they are typed by:
/// "Ærø Été" is "aero ete" (Unicode normalisation form KD, full case folding).
QString fold(QString const& text);

/// Of a folded text: numbers in it are in the order of their values, so that "Channel 10" comes after "Channel 2".
QString sortKey(QString const& folded);

/// The folded words of what a viewer has typed.
QStringList words(QString const& typed);

/// Whether a folded text has all of the words.
bool hasAll(QString const& folded, QStringList const& words);

} // namespace FoldedText
