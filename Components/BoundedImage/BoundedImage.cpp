#include "BoundedImage.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <mutex>

namespace
{

constexpr int bytesPerPixel = 8; // The widest format that a decoder makes.
constexpr int allocationLimitMiB = static_cast<int>(BoundedImage::maximumPixels * bytesPerPixel >> 20) + 1;

/// The limit of the decoders themselves, for those that find out the size late. One for the whole process.
void setAllocationLimit()
{
    static std::once_flag once;
    std::call_once(once, [] {
        int const limit = QImageReader::allocationLimit();
        if (limit == 0 || limit > allocationLimitMiB)
            QImageReader::setAllocationLimit(allocationLimitMiB);
    });
}

QString faultOf(QImageReader& reader)
{
    static QList<QByteArray> const formats{"png", "jpeg", "gif", "webp"};
    if (!formats.contains(reader.format()))
        return QStringLiteral("it is no picture");
    QSize const size = reader.size();
    if (!size.isValid() || size.isEmpty())
        return QStringLiteral("its size is not known");
    if (qint64{size.width()} * size.height() > BoundedImage::maximumPixels)
        return QStringLiteral("it is too large");
    return {};
}

} // namespace

QImage BoundedImage::decode(QByteArray const& bytes)
{
    setAllocationLimit();
    if (bytes.size() > maximumBytes)
        return {};
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    if (!::faultOf(reader).isEmpty())
        return {};
    QSize const size = reader.size();
    if (std::max(size.width(), size.height()) > maximumSide) {
        QSize const scaled = size.scaled(maximumSide, maximumSide, Qt::KeepAspectRatio);
        reader.setScaledSize(scaled.expandedTo({1, 1}));
    }
    return reader.read();
}

QString BoundedImage::faultOf(QByteArray const& bytes)
{
    if (bytes.size() > maximumBytes)
        return QStringLiteral("it is too large");
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    return ::faultOf(reader);
}
