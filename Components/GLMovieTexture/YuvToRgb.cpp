#include "YuvToRgb.h"

#include <algorithm>

namespace
{
constexpr int shift = 14;

constexpr int fixed(double factor)
{
    return static_cast<int>(factor * (1 << shift) + (factor < 0.0 ? -0.5 : 0.5));
}

constexpr int lumaScale = fixed(1.164);
constexpr int redV = fixed(1.596);
constexpr int greenU = fixed(-0.391);
constexpr int greenV = fixed(-0.813);
constexpr int blueU = fixed(2.018);
constexpr int rounding = 1 << (shift - 1);

// The offsets are fractions of 255, as the card sees them: 0.0625 and 0.5, not 16 and 128.
constexpr int lumaOffset = fixed(1.164 * 0.0625 * 255.0);
constexpr double chromaOffset = 0.5 * 255.0;
constexpr int redBias = rounding - lumaOffset - fixed(1.596 * chromaOffset);
constexpr int greenBias = rounding - lumaOffset - fixed((-0.391 - 0.813) * chromaOffset);
constexpr int blueBias = rounding - lumaOffset - fixed(2.018 * chromaOffset);

unsigned char clamped(int value)
{
    return static_cast<unsigned char>(std::clamp(value >> shift, 0, 255));
}
} // namespace

void YuvToRgb::convertRow(Row const& row, int width, unsigned char* target, int bytesPerPixel)
{
    for (int x = 0; x < width; ++x, target += bytesPerPixel) {
        int const y = row.y[x] * lumaScale;
        int const u = row.u[x];
        int const v = row.v[x];
        target[0] = clamped(y + v * redV + redBias);
        target[1] = clamped(y + u * greenU + v * greenV + greenBias);
        target[2] = clamped(y + u * blueU + blueBias);
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
