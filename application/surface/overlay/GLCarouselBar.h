#pragma once

#include "GLButtonControl.h"
#include "GLPanelControl.h"

/// The buttons under the carousel.
class GLCarouselBar : public GLPanelControl
{
    Q_OBJECT

public:
    static constexpr int height = 52; ///< Pixels.

    explicit GLCarouselBar(GLControlStyle const& style, QObject* parent = nullptr);

    double preferredWidth() const;
    void recalcLayout(double scale) override;

signals:
    /// The name of a button, and by how many slides it moves the carousel, to the trailing side when positive.
    void buttonPressed(QString name, int steps);

private:
    GLButtonControl _left;
    GLButtonControl _play;
    GLButtonControl _multiview;
    GLButtonControl _right;
};
