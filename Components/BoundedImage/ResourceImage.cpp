#include "ResourceImage.h"

#include <QImageReader>

QImage ResourceImage::png(QString const& path)
{
    QImageReader reader(path, "png");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}
