#pragma once

#include <QPalette>

/// The colours of everything in the skin: dark and calm. Text has at least 7:1, and 4.5:1 where it is not in
/// use.
QPalette skinPalette();
