#include "GLTexture.h"

#include "GLARBTextureNonPowerOfTwo.h"
#include "GLContextScope.h"
#include "Logger.h"
#include "LoggerManager.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <bit>

Logger* GLTexture::log = LoggerManager::logger();

namespace
{
QColor const outlineColour(0, 0, 0, 200);

/// Grows the image to the size, repeating its last row and column once so that filtering finds no foreign colour.
QImage padded(QImage const& image, QSize const& size)
{
    QImage result = image.copy(QRect(QPoint(0, 0), size));
    if (size.width() > image.width())
        for (int y = 0; y < image.height(); ++y)
            result.setPixelColor(image.width(), y, image.pixelColor(image.width() - 1, y));
    if (size.height() > image.height())
        std::copy_n(result.constScanLine(image.height() - 1), result.bytesPerLine(), result.scanLine(image.height()));
    return result;
}
} // namespace

GLTexture::~GLTexture()
{
    destroy();
}

bool GLTexture::create(QImage const& image)
{
    destroy();
    GLint maximumSize = 0;
    if (QOpenGLContext::currentContext())
        glGetIntegerv(GL_MAX_TEXTURE_SIZE, &maximumSize);
    QSize size = image.size();
    if (!GLARBTextureNonPowerOfTwo::instance()->isSupported())
        size = QSize(nearestPowerOfTwo(size.width()), nearestPowerOfTwo(size.height()));
    if (image.isNull() || size.width() > maximumSize || size.height() > maximumSize) {
        LOG_ERROR("Cannot create a texture of size %d x %d", image.width(), image.height());
        return false;
    }

    QImage pixels = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (size != image.size())
        pixels = padded(pixels, size);
    glGenTextures(1, &_handle);
    glBindTexture(GL_TEXTURE_2D, _handle);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, size.width(), size.height(), 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 pixels.constBits());
    glBindTexture(GL_TEXTURE_2D, 0);
    _context = QOpenGLContext::currentContext();
    _originalSize = image.size();
    _size = size;
    if (checkForGLErrors("creating a texture")) {
        destroy();
        return false;
    }
    return true;
}

bool GLTexture::create(int width, int height)
{
    QImage image(std::max(0, width), std::max(0, height), QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::transparent);
    return create(image);
}

bool GLTexture::create(int width, int height, double margin, double outlineWidth, double cornerRadius,
                       QColor const& textColour, QColor const& backgroundColour, QFont const& font,
                       QString const& text, Qt::Alignment alignment)
{
    return create(textImage(QSize(width, height), margin, outlineWidth, cornerRadius, textColour, backgroundColour,
                            font, text, alignment));
}

void GLTexture::destroy()
{
    if (_handle == 0)
        return;
    GLContextScope const scope(_context);
    if (scope.isCurrent())
        glDeleteTextures(1, &_handle);
    _handle = 0;
    _originalSize = _size = QSize();
}

QImage GLTexture::textImage(QSize const& size, double margin, double outlineWidth, double cornerRadius,
                            QColor const& textColour, QColor const& backgroundColour, QFont const& font,
                            QString const& text, Qt::Alignment alignment)
{
    QImage image(size.expandedTo(QSize(0, 0)), QImage::Format_RGBA8888_Premultiplied);
    if (image.isNull())
        return image;
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(backgroundColour);
    painter.drawRoundedRect(QRectF(image.rect()), cornerRadius, cornerRadius);

    QFontMetricsF const metrics(font, &image);
    QStringList const lines = text.split('\n');
    double const inset = margin + outlineWidth;
    QRectF const area = QRectF(image.rect()).adjusted(inset, inset, -inset, -inset);
    double top = area.top();
    double const spare = area.height() - metrics.lineSpacing() * static_cast<double>(lines.size());
    if (alignment & Qt::AlignBottom)
        top += spare;
    else if (!(alignment & Qt::AlignTop))
        top += spare / 2.0;

    QPainterPath path;
    for (QString const& line : lines) {
        double left = area.left();
        double const lineSpare = area.width() - metrics.horizontalAdvance(line);
        if (alignment & Qt::AlignRight)
            left += lineSpare;
        else if (!(alignment & Qt::AlignLeft))
            left += lineSpare / 2.0;
        path.addText(left, top + metrics.ascent(), font, line);
        top += metrics.lineSpacing();
    }
    if (outlineWidth > 0.0)
        painter.strokePath(path, QPen(outlineColour, 2.0 * outlineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, textColour);
    return image;
}

bool GLTexture::checkForGLErrors(QString const& operation)
{
    bool failed = false;
    for (GLenum error = glGetError(); error != GL_NO_ERROR; error = glGetError()) {
        LOG_ERROR("OpenGL error 0x%04x while %s", error, qPrintable(operation));
        failed = true;
        if (!QOpenGLContext::currentContext())
            break; // Without a context the error would stand for ever.
    }
    return failed;
}

int GLTexture::nearestPowerOfTwo(int number)
{
    constexpr int largest = 1 << 30;
    return number >= largest ? largest
                             : static_cast<int>(std::bit_ceil(static_cast<unsigned int>(std::max(1, number))));
}
