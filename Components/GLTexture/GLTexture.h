#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QOpenGLContext>
#include <QPointer>
#include <QSize>
#include <QString>

class Logger;

/// A texture made of an image or of text, with premultiplied alpha: it is drawn with
/// glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA). The image's first row is at texture coordinate v = 0.
///
/// GL thread only. create() needs a current context; destroy() and the destructor find theirs by themselves.
class GLTexture
{
public:
    GLTexture() = default;
    ~GLTexture();
    GLTexture(GLTexture const&) = delete;
    GLTexture& operator=(GLTexture const&) = delete;

    /// Makes the texture, in place of the one before. Returns false, leaving none, when the size is empty or more
    /// than the card can do.
    bool create(QImage const& image);

    /// A transparent texture of this size in pixels.
    bool create(int width, int height);

    /// A text texture, as textImage() paints it.
    bool create(int width, int height, double margin, double outlineWidth, double cornerRadius,
                QColor const& textColour, QColor const& backgroundColour, QFont const& font, QString const& text,
                Qt::Alignment alignment = Qt::AlignCenter);

    void destroy();
    bool created() const { return _handle != 0 && _context; }
    /// Whether there was one, which has gone with its context.
    bool isLost() const { return _handle != 0 && !_context; }

    /// OpenGL's name of the texture, 0 before create().
    unsigned int handle() const { return _handle; }

    /// The size of the image, and that of the texture that holds it, which may have to be larger.
    int originalWidth() const { return _originalSize.width(); }
    int originalHeight() const { return _originalSize.height(); }
    int width() const { return _size.width(); }
    int height() const { return _size.height(); }

    /// The texture coordinates of the image's far corner.
    double maxU() const { return created() ? static_cast<double>(originalWidth()) / width() : 0.0; }
    double maxV() const { return created() ? static_cast<double>(originalHeight()) / height() : 0.0; }

    /// Paints lines of text, separated by "\n" and not broken any further, over a rounded background. The text has
    /// a dark outline, so that it can be read over any picture. Lengths in pixels.
    static QImage textImage(QSize const& size, double margin, double outlineWidth, double cornerRadius,
                            QColor const& textColour, QColor const& backgroundColour, QFont const& font,
                            QString const& text, Qt::Alignment alignment = Qt::AlignCenter);

    /// Logs all standing OpenGL errors with what was being done. Returns whether there was one.
    static bool checkForGLErrors(QString const& operation);

    /// The smallest power of two that is not below the number; 1 for numbers below 1.
    static int nearestPowerOfTwo(int number);

private:
    static Logger* log;

    QPointer<QOpenGLContext> _context; ///< Where the texture lives.
    unsigned int _handle = 0;
    QSize _originalSize;
    QSize _size;
};
