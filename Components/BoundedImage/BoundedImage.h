#pragma once

#include <QByteArray>
#include <QImage>

/// Pictures from outside, decoded within bounds: PNG, JPEG, GIF (its first picture) and WebP only, told by their
/// content. Any thread; not for the GUI's, since decoding takes as long as it takes.
class BoundedImage
{
public:
    static constexpr qsizetype maximumBytes = 16 << 20;
    static constexpr qint64 maximumPixels = 16'000'000;

    /// What is larger is scaled down to this width or height, so that thousands of them fit into memory.
    static constexpr int maximumSide = 512;

    /// The null image for whatever is no such picture or beyond the bounds.
    static QImage decode(QByteArray const& bytes);

    /// Why the bytes are no such picture, by their header alone; empty when they may be one.
    static QString faultOf(QByteArray const& bytes);
};
