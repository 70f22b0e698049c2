#include "GLMovieOverlay.h"

#include <QFont>

#include <algorithm>

namespace
{
constexpr double textShare = 0.9;      ///< Of the rectangle's width that a line may take.
constexpr double nameShare = 0.04;     ///< Of the rectangle's height above the name.
constexpr double heightPerLine = 18.0; ///< Lines of text that would fill the rectangle.
constexpr double smallestText = 11.0;  ///< Pixels.
constexpr double largestText = 32.0;   ///< Pixels.
} // namespace

GLMovieOverlay::GLMovieOverlay() : _name("Video Name"), _message("Video Message")
{
    _layout.addControl(&_name);
    _layout.addControl(&_message);
}

void GLMovieOverlay::setName(QString const& name)
{
    _name.setText(name);
    _rectangle = QRectF();
}

void GLMovieOverlay::setMessage(QString const& message)
{
    _message.setText(message);
    _rectangle = QRectF();
}

void GLMovieOverlay::draw(QRectF const& rectangle, double opacity)
{
    if (rectangle != _rectangle)
        arrange(rectangle);
    _layout.render(opacity);
}

void GLMovieOverlay::arrange(QRectF const& rectangle)
{
    _rectangle = rectangle;
    _layout.setSize(rectangle.size());
    QFont font;
    font.setPixelSize(static_cast<int>(std::clamp(rectangle.height() / heightPerLine, smallestText, largestText)));
    for (GLTextArea* const area : {&_name, &_message}) {
        area->setFont(font);
        QSizeF const size = area->sizeForWidth(rectangle.width() * textShare).boundedTo(rectangle.size());
        bool const isName = area == &_name;
        double const top = isName ? rectangle.height() * nameShare : (rectangle.height() - size.height()) / 2.0;
        double const left = (rectangle.width() - size.width()) / 2.0;
        // Whole pixels keep the letters sharp.
        area->setGeometry(QRectF(QPointF(rectangle.topLeft() + QPointF(left, top)).toPoint(), size));
    }
}
