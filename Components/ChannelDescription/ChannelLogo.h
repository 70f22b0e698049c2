#pragma once

#include <QByteArray>
#include <QImage>
#include <QMetaType>
#include <QSize>

#include <memory>

/// A channel's logo, compressed: a directory has thousands, of which a few are seen at a time. A value whose copies
/// share what they have. Any thread.
class ChannelLogo
{
public:
    ChannelLogo() = default;
    /// Compresses, which takes as long as the image is large: those from outside not on the GUI's thread.
    explicit ChannelLogo(QImage const& image);

    bool isNull() const { return !_packed; }
    /// In pixels.
    QSize size() const { return _packed ? _packed->size : QSize(); }

    /// The same for copies of one logo, different for any other; 0 for none. For what is made of it and kept.
    qint64 key() const { return _packed ? _packed->key : 0; }

    /// The pixels, 32 bits each: unpacked anew each time, in a millisecond or two for the largest.
    QImage image() const;

    bool operator==(ChannelLogo const& other) const;
    bool operator!=(ChannelLogo const& other) const { return !(*this == other); }

private:
    struct Packed {
        QByteArray bytes;
        QSize size;
        QImage::Format format;
        qint64 key;
    };

    std::shared_ptr<Packed const> _packed; ///< Null for no logo.
};

Q_DECLARE_METATYPE(ChannelLogo)
