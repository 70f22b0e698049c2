// What of a channel is seen.

#include "Channel.h"
#include "ChannelGrid.h"
#include "GLCanvas.h"
#include "GLControl.h"
#include "GLControlLayout.h"
#include "GLTextArea.h"

#include <algorithm>
#include <qopengl.h>

namespace
{
constexpr double overlayTextWidth = 0.8; // Of the picture's.
constexpr double logoWidth = 0.5;        // The same, at most.
constexpr double logoHeight = 0.25;      // Likewise; it is never enlarged.
constexpr double logoPlace = 1.0 / 4;    // Where its centre is from above: texts are in the middle.
} // namespace

void Channel::updateVideoTexture()
{
    for (auto const& stream : _streams)
        stream->updateVideoTexture();
}

int Channel::columns() const
{
    return ChannelGrid::columns(static_cast<int>(_streams.size()));
}

void Channel::drawVideoOrthoMode(QRect const& area, GLMovieRenderer::DrawMode mode)
{
    drawOrthoVideoArray(area, columns(), mode);
}

void Channel::drawOrthoVideoArray(QRect const& area, int columns, GLMovieRenderer::DrawMode mode)
{
    int const count = static_cast<int>(_streams.size());
    for (int i = 0; i < count; ++i)
        _streams[static_cast<size_t>(i)]->drawVideoOrthoMode(ChannelGrid::cell(area, columns, count, i), mode);
}

void Channel::drawVideoPerspectiveMode(QRectF const& area, bool keepAspect, double z)
{
    drawPerspectiveVideoArray(area, columns(), keepAspect, z);
}

void Channel::drawPerspectiveVideoArray(QRectF const& area, int columns, bool keepAspect, double z)
{
    int const count = static_cast<int>(_streams.size());
    int const rows = (count + columns - 1) / std::max(columns, 1);
    for (int i = 0; i < count; ++i) {
        QSizeF const size(area.width() / columns, area.height() / rows);
        // The first row is the uppermost, and y grows upward.
        QPointF const corner(area.left() + size.width() * (i % columns),
                             area.top() + size.height() * (rows - 1 - i / columns));
        _streams[static_cast<size_t>(i)]->drawVideoPerspectiveMode(QRectF(corner, size), keepAspect, z);
    }
}

bool Channel::hasOverlay() const
{
    return _layout && !_textArea->text().isEmpty();
}

bool Channel::hasPicture() const
{
    return std::any_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->hasPicture(); });
}

/// One of the viewer's own has no logo but the one that all such have.
bool Channel::showsLogo() const
{
    constexpr int withoutLogo = ChannelDescription::FileChannel | ChannelDescription::UserStreamChannel;
    return _layout && (desc.channelType() & withoutLogo) == 0 && !desc.packedLogo().isNull() && !hasPicture();
}

void Channel::createLogoTexture()
{
    if (_logoTexture.created() && !std::exchange(_isLogoChanged, false))
        return;
    _isLogoChanged = false;
    _logoTexture.create(desc.logo().convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void Channel::deleteLogoTexture()
{
    _logoTexture.destroy();
}

void Channel::drawBackground(QRect const& area)
{
    if (!showsLogo()) {
        deleteLogoTexture();
        return;
    }
    createLogoTexture();
    QSizeF size = desc.packedLogo().size();
    QSizeF const limit(area.width() * logoWidth, area.height() * logoHeight);
    if (size.width() > limit.width() || size.height() > limit.height())
        size.scale(limit, Qt::KeepAspectRatio);
    GLCanvas canvas;
    canvas.setTexture(&_logoTexture);
    canvas.setGeometry(QRectF(QPointF(area.left() + (area.width() - size.width()) / 2,
                                      area.top() + area.height() * logoPlace - size.height() / 2),
                              size));
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    canvas.render(1.0);
    glBindTexture(GL_TEXTURE_2D, 0);
    glPopAttrib();
}

bool Channel::isPlain() const
{
    return !hasOverlay() && !showsLogo() &&
           std::all_of(_streams.cbegin(), _streams.cend(), [](auto const& s) { return s->isPlain(); });
}

void Channel::appendPlainPictures(QRect const& area, GLMovieRenderer::DrawMode mode,
                                  std::vector<GLMoviePicture>& pictures)
{
    int const count = static_cast<int>(_streams.size());
    for (int i = 0; i < count; ++i) {
        QRect const cell = ChannelGrid::cell(area, columns(), count, i);
        if (auto const picture = _streams[static_cast<size_t>(i)]->plainPicture(cell, mode))
            pictures.push_back(*picture);
    }
}

void Channel::drawOverlay(QRect const& area)
{
    if (!hasOverlay())
        return;
    _layout->setSize(QSizeF(area.right() + 1, area.bottom() + 1));
    _control->setGeometry(QRectF(area)); // What it holds counts from its corner.
    QSizeF const size = _textArea->sizeForWidth(area.width() * overlayTextWidth);
    _textArea->setGeometry(
        QRectF(QPointF((area.width() - size.width()) / 2, (area.height() - size.height()) / 2), size));
    _layout->render(1.0);
}
