#pragma once

#include <QString>

/// A tool tip that shows a text as it is, whatever it has, and breaks its lines; empty for none. Qt takes a text
/// without a tag for plain, and would show what escapes its letters.
inline QString plainToolTip(QString const& text)
{
    return text.isEmpty() ? QString() : QString("<qt>" + text.toHtmlEscaped() + "</qt>");
}
