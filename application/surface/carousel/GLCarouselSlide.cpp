#include "GLCarouselSlide.h"

#include "Channel.h"
#include "ChannelTitle.h"
#include "GLMovieQuad.h"
#include "GLMovieWindowMap.h"
#include "Look.h"
#include "OverlayStyle.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <qopengl.h>

namespace
{
constexpr int largestLogo = 512;          ///< Pixels.
constexpr double logoPart = 0.6;          ///< Of the card, at most.
constexpr double titleHeight = 0.06;      ///< In units of the carousel.
constexpr double titleGap = 0.03;         ///< Likewise, below the card.
constexpr double reflectionHeight = 0.4;  ///< Of the card.
constexpr double reflectionOpacity = 0.3; ///< At the card's edge; it fades from there.
constexpr double widestTitle = 1.1;       // In units of the carousel: wider than the card.
constexpr double textPart = 0.62;         ///< Of the title's height.
constexpr qsizetype longestTitle = 200;   ///< Characters; more never fit.
constexpr QColor cardColour(30, 36, 58);
constexpr QColor cardFoot(20, 24, 40);

void applyColour(QColor const& c, double opacity)
{
    glColor4d(c.redF() * opacity, c.greenF() * opacity, c.blueF() * opacity, opacity);
}

/// In premultiplied colours.
void drawGradient(QRectF const& area, QColor const& above, double aboveOpacity, QColor const& below,
                  double belowOpacity)
{
    glDisable(GL_TEXTURE_2D);
    glBegin(GL_QUADS);
    applyColour(above, aboveOpacity);
    glVertex2d(area.left(), area.bottom());
    glVertex2d(area.right(), area.bottom());
    applyColour(below, belowOpacity);
    glVertex2d(area.right(), area.top());
    glVertex2d(area.left(), area.top());
    glEnd();
}

/// `area` has its lower edge at its top(), since y grows upward.
void drawImageTexture(GLTexture const& texture, QRectF const& area, double opacity)
{
    if (!texture.created())
        return;
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, texture.handle());
    glColor4d(opacity, opacity, opacity, opacity);
    glBegin(GL_QUADS);
    glTexCoord2d(0.0, 0.0);
    glVertex2d(area.left(), area.bottom());
    glTexCoord2d(texture.maxU(), 0.0);
    glVertex2d(area.right(), area.bottom());
    glTexCoord2d(texture.maxU(), texture.maxV());
    glVertex2d(area.right(), area.top());
    glTexCoord2d(0.0, texture.maxV());
    glVertex2d(area.left(), area.top());
    glEnd();
    glBindTexture(GL_TEXTURE_2D, 0);
    glDisable(GL_TEXTURE_2D);
}
} // namespace

GLCarouselSlide::GLCarouselSlide(QString const& rootId, QObject* parent) : QObject(parent), _rootId(rootId) {}

void GLCarouselSlide::render(Channel& channel, double opacity, double titleOpacity, double pixelsPerUnit,
                             Budget& budget)
{
    _corners = GLMovieWindowMap().map(GLMovieQuad{-width / 2, height / 2, width / 2, -height / 2, 0.0, {}});
    glPushMatrix();
    glTranslated(0.0, -height, 0.0); // Below the card, upside down.
    glScaled(1.0, -1.0, 1.0);
    renderCard(channel, opacity, true, budget);
    glPopMatrix();
    double const foot = -height / 2;
    double const depth = height * reflectionHeight;
    drawGradient({-width / 2, foot - depth, width, depth}, Qt::black, 1.0 - reflectionOpacity, Qt::black, 1.0);
    drawGradient({-width / 2, foot - height, width, height - depth}, Qt::black, 1.0, Qt::black, 1.0);
    renderCard(channel, opacity, false, budget);
    if (titleOpacity > 0.0)
        renderTitle(channel, opacity * titleOpacity, pixelsPerUnit, budget);
}

void GLCarouselSlide::renderCard(Channel& channel, double opacity, bool isReflection, Budget& budget)
{
    QRectF const card(-width / 2, -height / 2, width, height);
    drawGradient(card, cardColour, 1.0, cardFoot, 1.0);
    if (!isReflection && channel.hasVideo())
        channel.updateVideoTexture();
    if (channel.hasPicture()) {
        channel.drawVideoPerspectiveMode(card, true);
    } else {
        updateLogo(channel.desc.packedLogo(), budget);
        if (_logo.created()) {
            QSizeF const size = QSizeF(_logo.originalWidth(), _logo.originalHeight())
                                    .scaled(card.size() * logoPart, Qt::KeepAspectRatio);
            drawImageTexture(_logo, {-size.width() / 2, -size.height() / 2, size.width(), size.height()}, 1.0);
        }
    }
    if (opacity < 1.0) // Farther ones are darker, not transparent: what is behind them does not shine through.
        drawGradient(card, Qt::black, 1.0 - opacity, Qt::black, 1.0 - opacity);
}

void GLCarouselSlide::updateLogo(ChannelLogo const& packed, Budget& budget)
{
    if ((packed.key() == _logoKey && !_logo.isLost()) || !budget.take())
        return;
    _logoKey = packed.key();
    QImage const logo = packed.image();
    QImage const small = logo.width() > largestLogo || logo.height() > largestLogo
                             ? logo.scaled(largestLogo, largestLogo, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                             : logo;
    if (small.isNull())
        _logo.destroy();
    else
        _logo.create(small.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void GLCarouselSlide::renderTitle(Channel const& channel, double opacity, double pixelsPerUnit, Budget& budget)
{
    updateTitle(ChannelTitle::shown(channel.desc.title(), longestTitle),
                static_cast<int>(titleHeight * pixelsPerUnit), budget);
    if (!_titleTexture.created())
        return;
    double const shown = titleHeight * _titleTexture.originalWidth() / _titleTexture.originalHeight();
    drawImageTexture(_titleTexture, {-shown / 2, -height / 2 - titleGap - titleHeight, shown, titleHeight}, opacity);
}

void GLCarouselSlide::updateTitle(QString const& title, int pixels, Budget& budget)
{
    QString const text = title.simplified();
    if (pixels < 1 || (text == _title && _titleTexture.originalHeight() == pixels && _titleTexture.created()))
        return;
    if (!budget.take())
        return;
    _title = text;
    QFont font = OverlayStyle::titleFont();
    font.setPixelSize(std::max(1, static_cast<int>(pixels * textPart)));
    int const widest = static_cast<int>(pixels * widestTitle / titleHeight);
    QFontMetricsF const metrics(font);
    QString const shown = metrics.elidedText(text, Qt::ElideRight, widest - pixels / 2.0);
    int const needed = std::clamp(static_cast<int>(metrics.horizontalAdvance(shown) + pixels / 2.0), 1, widest);
    QImage image(needed, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Look::overlayText);
    painter.drawText(image.rect(), Qt::AlignCenter | Qt::TextSingleLine, shown);
    painter.end();
    _titleTexture.create(image);
}
