#pragma once

#include <QColor>

/// What everything that is drawn has in common: distances, sizes, colours, motion. docs/look.md tells how to use it.
///
/// Lengths are in device-independent pixels. Main thread only.
struct Look {
    static constexpr int grid = 8; ///< Every distance is a multiple of it, or its half.
    static constexpr int halfGrid = grid / 2;
    static constexpr int radius = 6;        ///< Of the corners of cards, buttons over the picture, fields.
    static constexpr int margin = 2 * grid; ///< Between the contents of a window and its edge.
    static constexpr int strokeWidth = 2;   ///< Of focus rings and of the lines of icons at 24 pixels.

    static constexpr int smallIcon = 16; ///< In lines of text, menus and tables.
    static constexpr int icon = 20;      ///< On buttons, over the picture, too.
    static constexpr int largeIcon = 32; ///< Beside a text that stands alone.
    static constexpr int target = 36;    ///< The least side of what is clicked over the picture.

    static constexpr int quickMilliseconds = 150; ///< Hover, press.
    static constexpr int fadeMilliseconds = 200;  ///< Appearing, going away.
    static constexpr int moveMilliseconds = 250;  ///< What changes its place. All of it eases out.

    /// Factors of the desktop's own size of text.
    static constexpr double titleSize = 1.5;
    static constexpr double headingSize = 1.15;
    static constexpr double smallSize = 0.9;

    // Over the picture: dark, translucent, whatever the palette is. Text and accent have at least 4.5:1 on the ground
    // over any picture.
    static constexpr QColor overlayGround = QColor(16, 20, 36, 216);
    static constexpr QColor overlayHover = QColor(255, 255, 255, 36);
    static constexpr QColor overlayPressed = QColor(255, 255, 255, 64);
    static constexpr QColor overlayLine = QColor(255, 255, 255, 48);
    static constexpr QColor overlayText = QColor(244, 244, 248);
    static constexpr QColor overlayDimText = QColor(200, 203, 216);
    static constexpr QColor accent = QColor(255, 176, 64);
    static constexpr QColor alert = QColor(255, 138, 128); ///< Recording, errors, live.

    /// Whether the desktop asks for as little motion as possible. Known to be so a moment after the program's start,
    /// since the desktop is asked without waiting for it; until then, what Qt knows.
    static bool reducedMotion();

    /// A duration in ms, 0 where there is to be no motion.
    static int motion(int ms) { return reducedMotion() ? 0 : ms; }
};
