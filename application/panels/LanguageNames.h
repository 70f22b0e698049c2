#pragma once

#include "LanguageId.h"

#include <QString>

/// Languages in words: each as those who speak it write it. Main thread only, since what was looked up is kept.
namespace LanguageNames
{

/// "Deutsch"; the code itself where nobody knows it; empty for the null language.
QString name(LanguageId const& language);

/// What a viewer may type for it, folded: its own name, the English one, the code.
QString filterKey(LanguageId const& language);

} // namespace LanguageNames
