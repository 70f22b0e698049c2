#include "ChannelLogo.h"

namespace
{

constexpr int depth = 32;      ///< Bits of a pixel, so that lines follow each other without a gap.
constexpr int compression = 1; ///< zlib's: more costs several times as much and saves little.

QImage withDepth(QImage const& image)
{
    if (image.depth() == depth)
        return image;
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32 : QImage::Format_RGB32);
}

void freeBytes(void* bytes)
{
    delete static_cast<QByteArray*>(bytes);
}

} // namespace

ChannelLogo::ChannelLogo(QImage const& image)
{
    if (image.isNull())
        return;
    QImage const pixels = withDepth(image);
    QByteArray bytes = qCompress(pixels.constBits(), pixels.sizeInBytes(), compression);
    bytes.squeeze(); // It has the room that the pixels would need.
    _packed = std::make_shared<Packed const>(Packed{bytes, pixels.size(), pixels.format(), image.cacheKey()});
}

QImage ChannelLogo::image() const
{
    if (!_packed)
        return {};
    auto bytes = std::make_unique<QByteArray>(qUncompress(_packed->bytes));
    auto const* const pixels = reinterpret_cast<uchar const*>(bytes->constData());
    int const width = _packed->size.width();
    return {pixels, width, _packed->size.height(), width * (depth / 8), _packed->format, &freeBytes, bytes.release()};
}

bool ChannelLogo::operator==(ChannelLogo const& other) const
{
    if (_packed == other._packed)
        return true;
    return _packed && other._packed && _packed->size == other._packed->size &&
           _packed->format == other._packed->format && _packed->bytes == other._packed->bytes;
}
