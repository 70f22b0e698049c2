#pragma once

#include <QString>

#include <optional>

struct Effect;

/// What effects may be called, and the names of their files. Any thread.
///
/// A name may have any letters; its file's has ASCII letters, digits, "-", "_" and percent-encoded bytes only, so
/// that no name leads out of the directory, and two names never have one file.
namespace EffectNames
{

constexpr int maximumBytes = 80; ///< Of UTF-8, so that the longest file name has less than 255.

/// One line, white space at the ends removed and made single blanks within, without control characters.
QString tidied(QString const& name);

/// What is wrong with a tidied name, in words; empty for a good one.
QString problem(QString const& name);

QString fileName(QString const& name);

/// As a viewer reads it: those that come with the program in the viewer's language.
QString shown(Effect const& effect);

/// The name that has this file; nothing for a file that none has.
std::optional<QString> fromFileName(QString const& fileName);

} // namespace EffectNames
