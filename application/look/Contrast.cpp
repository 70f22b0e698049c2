#include "Contrast.h"

#include <algorithm>
#include <cmath>

namespace
{

double luminance(QColor const& colour)
{
    auto const linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

double Contrast::between(QColor const& one, QColor const& other)
{
    auto const [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    constexpr double flare = 0.05;
    return (lighter + flare) / (darker + flare);
}

QColor Contrast::mixed(QColor const& text, QColor const& ground, double share)
{
    auto const part = [share](int a, int b) { return static_cast<int>(std::lround(a * share + b * (1.0 - share))); };
    return {part(text.red(), ground.red()), part(text.green(), ground.green()), part(text.blue(), ground.blue())};
}

QColor Contrast::reaching(double contrast, QColor const& text, QColor const& ground, double leastShare)
{
    constexpr double step = 0.05;
    QColor colour = mixed(text, ground, leastShare);
    for (double share = leastShare; share < 1.0 && between(colour, ground) < contrast;) {
        share = std::min(1.0, share + step);
        colour = mixed(text, ground, share);
    }
    return colour;
}
