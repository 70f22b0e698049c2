#pragma once

struct GLMovieColourSpace;

/// Converts rows of YUV to RGB on the processor, by the numbers that the graphics card's programs use.
class YuvToRgb
{
public:
    /// One picture row of luma with one row of chroma per component, of the same width.
    struct Row {
        unsigned char const* y;
        unsigned char const* u;
        unsigned char const* v;
    };

    explicit YuvToRgb(GLMovieColourSpace const& space);

    /// Writes `width` pixels of 3 bytes (red, green, blue), or of 4 with 255 as the last.
    void convertRow(Row const& row, int width, unsigned char* target, int bytesPerPixel) const;

    /// Widens a row of 4:2:0 chroma to the luma's width: three parts of the `near` row with one of the `far`, and
    /// likewise between columns, as linear filtering does with samples that lie amid four pixels.
    static void widenChroma(unsigned char const* near, unsigned char const* far, int chromaWidth, int width,
                            unsigned char* target);

private:
    // Fixed point; the biases hold the offsets and the rounding.
    int _luma;
    int _redV;
    int _greenU;
    int _greenV;
    int _blueU;
    int _redBias;
    int _greenBias;
    int _blueBias;
};
