#pragma once

#include <QColor>

/// How well one colour stands out from another, as the Web Content Accessibility Guidelines 2.1 define it. Any
/// thread.
namespace Contrast
{

constexpr double ofText = 4.5;  ///< The least that is read with ease.
constexpr double ofParts = 3.0; ///< The least at which the outline of a control is seen.

/// From 1, of equal colours, to 21. Opacity does not count.
double between(QColor const& one, QColor const& other);

/// The colour of `share` of the text over the ground, both opaque.
QColor mixed(QColor const& text, QColor const& ground, double share);

/// As little of the text's colour over the ground as has at least that contrast, but no less than the least share.
QColor reaching(double contrast, QColor const& text, QColor const& ground, double leastShare);

} // namespace Contrast
