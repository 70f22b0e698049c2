#pragma once

#include "ChannelLogo.h"
#include "GLTexture.h"

#include <QObject>
#include <QPolygonF>
#include <QString>

class Channel;

/// One channel of the carousel: a card with its picture, or else its logo, its title below, and a reflection of the
/// card. Has its textures only while it lives, which is while it is near the middle. GL thread only.
class GLCarouselSlide : public QObject
{
    Q_OBJECT

public:
    /// Of a card, in units of the carousel's space, in which a height of the surface is 1.
    static constexpr double width = 0.75;
    static constexpr double height = width * 9.0 / 16.0;

    explicit GLCarouselSlide(QString const& rootId, QObject* parent = nullptr);

    QString rootId() const { return _rootId; }

    /// What drawing may cost: making textures takes time, so that a frame makes only some.
    struct Budget {
        int textures = 0;        ///< That may still be made.
        bool isExceeded = false; ///< More were wanted.

        bool take()
        {
            isExceeded |= textures <= 0;
            return textures-- > 0;
        }
    };

    /// Draws it with the middle of the card at the origin, y upward. `opacity` is of all of it, `titleOpacity` of the
    /// title besides; `pixelsPerUnit` is how sharp the title has to be. Notes where the card is on the surface.
    void render(Channel& channel, double opacity, double titleOpacity, double pixelsPerUnit, Budget& budget);

    /// Where the card was drawn last, in pixels of the surface.
    bool hitTest(QPointF point) const { return _corners.containsPoint(point, Qt::OddEvenFill); }

private:
    void renderCard(Channel& channel, double opacity, bool isReflection, Budget& budget);
    void renderTitle(Channel const& channel, double opacity, double pixelsPerUnit, Budget& budget);
    void updateTitle(QString const& title, int pixels, Budget& budget);
    void updateLogo(ChannelLogo const& packed, Budget& budget);

    QString const _rootId;
    GLTexture _logo;
    qint64 _logoKey = 0; ///< Of the image that the texture was made of.
    GLTexture _titleTexture;
    QString _title; ///< What is on the texture.
    QPolygonF _corners;
};
