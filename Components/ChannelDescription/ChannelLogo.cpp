#include "ChannelLogo.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int depth = 32;      ///< Bits of a pixel, so that lines follow each other without a gap.
constexpr int compression = 1; ///< zlib's: more costs several times as much and saves little.

constexpr int largeSide = 144; ///< Pixels: beyond it a small one saves enough time for the room that it takes.

QImage withDepth(QImage const& image)
{
    if (image.depth() == depth)
        return image;
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

/// A logo may be a line: neither side goes.
QSize sizeWithin(QSize const& size, QSize const& box)
{
    return size.scaled(box, Qt::KeepAspectRatio).expandedTo({1, 1});
}

QImage scaled(QImage const& image, QSize const& size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void freeBytes(void* bytes)
{
    delete static_cast<QByteArray*>(bytes);
}

} // namespace

ChannelLogo::Pixels::Pixels(QImage const& image)
{
    QImage const pixels = withDepth(image);
    bytes = qCompress(pixels.constBits(), pixels.sizeInBytes(), compression);
    bytes.squeeze(); // It has the room that the pixels would need.
    size = pixels.size();
    format = pixels.format();
}

QImage ChannelLogo::Pixels::unpacked() const
{
    auto unpacked = std::make_unique<QByteArray>(qUncompress(bytes));
    qsizetype const line = size.width() * qsizetype{depth / 8};
    if (unpacked->size() != line * size.height())
        return {}; // There is no memory for it.
    auto const* const pixels = reinterpret_cast<uchar const*>(unpacked->constData());
    return {pixels, size.width(), size.height(), line, format, &freeBytes, unpacked.release()};
}

ChannelLogo::ChannelLogo(QImage const& image)
{
    if (image.isNull())
        return;
    Packed packed{Pixels(image), {}, image.cacheKey()};
    if (std::max(image.width(), image.height()) > largeSide)
        packed.small = Pixels(scaled(withDepth(image), sizeWithin(image.size(), {smallSide, smallSide})));
    _packed = std::make_shared<Packed const>(std::move(packed));
}

QImage ChannelLogo::image(QSize const& box) const
{
    if (!_packed)
        return {};
    QSize const wanted = sizeWithin(size(), box);
    Pixels const& small = _packed->small;
    bool const isSmall = wanted.width() <= small.size.width() && wanted.height() <= small.size.height();
    QImage const pixels = isSmall ? small.unpacked() : image();
    return pixels.isNull() ? pixels : scaled(pixels, wanted);
}

bool ChannelLogo::operator==(ChannelLogo const& other) const
{
    if (_packed == other._packed)
        return true;
    if (!_packed || !other._packed)
        return false;
    Pixels const& one = _packed->full;
    Pixels const& two = other._packed->full;
    return one.size == two.size && one.format == two.format && one.bytes == two.bytes;
}
