#include "YuvToRgb.h"

#include "GLMovieColourSpace.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int shift = 14;

int fixed(double factor)
{
    return static_cast<int>(std::lround(factor * (1 << shift)));
}

constexpr int rounding = 1 << (shift - 1);

unsigned char clamped(int value)
{
    return static_cast<unsigned char>(std::clamp(value >> shift, 0, 255));
}
} // namespace

YuvToRgb::YuvToRgb(GLMovieColourSpace const& space)
{
    GLMovieColourSpace::Coefficients const numbers = space.coefficients();
    _luma = fixed(numbers.luma);
    _redV = fixed(numbers.redV);
    _greenU = fixed(numbers.greenU);
    _greenV = fixed(numbers.greenV);
    _blueU = fixed(numbers.blueU);
    // The offsets are fractions of 255, as the card sees them.
    auto const bias = [&numbers](double chroma) {
        return rounding - fixed((numbers.luma * numbers.lumaOffset + chroma * numbers.chromaOffset) * 255.0);
    };
    _redBias = bias(numbers.redV);
    _greenBias = bias(numbers.greenU + numbers.greenV);
    _blueBias = bias(numbers.blueU);
}

void YuvToRgb::convertRow(Row const& row, int width, unsigned char* target, int bytesPerPixel) const
{
    YuvToRgb const k = *this; // A copy that the bytes written cannot change.
    for (int x = 0; x < width; ++x, target += bytesPerPixel) {
        int const y = row.y[x] * k._luma;
        int const u = row.u[x];
        int const v = row.v[x];
        target[0] = clamped(y + v * k._redV + k._redBias);
        target[1] = clamped(y + u * k._greenU + v * k._greenV + k._greenBias);
        target[2] = clamped(y + u * k._blueU + k._blueBias);
        if (bytesPerPixel == 4)
            target[3] = 255;
    }
}

void YuvToRgb::widenChroma(unsigned char const* near, unsigned char const* far, int chromaWidth, int width,
                           unsigned char* target)
{
    int previous = 3 * near[0] + far[0];
    int current = previous;
    for (int x = 0; x < chromaWidth; ++x) {
        int const right = std::min(x + 1, chromaWidth - 1);
        int const next = 3 * near[right] + far[right];
        target[2 * x] = static_cast<unsigned char>((previous + 3 * current + 8) >> 4);
        if (2 * x + 1 < width)
            target[2 * x + 1] = static_cast<unsigned char>((3 * current + next + 8) >> 4);
        previous = current;
        current = next;
    }
}
