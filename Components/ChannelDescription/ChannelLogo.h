#pragma once

#include <QByteArray>
#include <QImage>
#include <QMetaType>
#include <QSize>

#include <memory>

/// A channel's logo, compressed: a directory has thousands, of which a few are seen at a time. Beside a large one is
/// a small one, for rows and menus, which show many at once. A value whose copies share what they have. Any thread.
class ChannelLogo
{
public:
    ChannelLogo() = default;
    /// Compresses, which takes as long as the image is large: those from outside not on the GUI's thread.
    explicit ChannelLogo(QImage const& image);

    bool isNull() const { return !_packed; }
    /// In pixels.
    QSize size() const { return _packed ? _packed->full.size : QSize(); }

    /// The same for copies of one logo, different for any other; 0 for none. For what is made of it and kept.
    qint64 key() const { return _packed ? _packed->key : 0; }

    /// The pixels, 32 bits each: unpacked anew each time, in up to ten milliseconds for the largest. Null for no
    /// logo, and where memory fails.
    QImage image() const { return _packed ? _packed->full.unpacked() : QImage(); }

    /// The same, as large as fits into the box, in pixels: in a fraction of the time where that is up to smallSide.
    QImage image(QSize const& box) const;

    static constexpr int smallSide = 96; ///< Pixels: a row of two lines on a screen of twice the density.

    bool operator==(ChannelLogo const& other) const;
    bool operator!=(ChannelLogo const& other) const { return !(*this == other); }

private:
    struct Pixels {
        QByteArray bytes;
        QSize size;
        QImage::Format format = QImage::Format_Invalid;

        Pixels() = default;
        explicit Pixels(QImage const& image);
        QImage unpacked() const;
    };

    struct Packed {
        Pixels full;
        Pixels small; ///< Empty where the full one is not much larger.
        qint64 key;
    };

    std::shared_ptr<Packed const> _packed; ///< Null for no logo.
};

Q_DECLARE_METATYPE(ChannelLogo)
