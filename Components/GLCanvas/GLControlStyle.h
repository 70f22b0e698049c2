#pragma once

#include <QColor>
#include <QFont>

/// What the controls that paint themselves have in common: whoever makes them chooses. Lengths in pixels.
struct GLControlStyle {
    QFont font;
    QColor ground = QColor(0, 0, 0, 200); ///< Of bars and tips.
    QColor text = Qt::white;
    QColor dimText = Qt::lightGray;
    QColor hover = QColor(255, 255, 255, 40); ///< Laid over the ground, as the next two.
    QColor pressed = QColor(255, 255, 255, 70);
    QColor line = QColor(255, 255, 255, 60);
    QColor accent = QColor(255, 180, 60); ///< What is on, how far something is, and the focus.
    QColor alert = QColor(255, 130, 120);
    double radius = 6.0; ///< Of corners.
    double stroke = 2.0; ///< Of rings and lines.
    double padding = 8.0;
    int icon = 20; ///< The side of one.
};
