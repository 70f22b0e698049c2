#include "ElidedLabel.h"

#include "PlainToolTip.h"

#include <QEvent>

namespace
{

/// What is looked at for elision: nobody reads a line to its ten thousandth character, and measuring it takes long.
constexpr qsizetype longestLine = 1000;

} // namespace

ElidedLabel::ElidedLabel(QWidget* parent, Qt::TextElideMode mode) : QLabel(parent), _mode(mode)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::setFullText(QString const& text)
{
    if (_text == text)
        return;
    _text = text.left(longestLine).simplified();
    setAccessibleName(_text);
    updateGeometry();
    elide();
}

QSize ElidedLabel::sizeHint() const
{
    int const frame = 2 * margin();
    return {fontMetrics().horizontalAdvance(_text) + frame + 2, fontMetrics().height() + frame};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {qMin(sizeHint().width(), fontMetrics().horizontalAdvance(QStringLiteral("mmm"))), sizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        elide();
}

void ElidedLabel::elide()
{
    QString const shown = fontMetrics().elidedText(_text, _mode, contentsRect().width() - 2 * margin());
    setText(shown);
    setToolTip(shown == _text ? QString() : plainToolTip(_text));
}
