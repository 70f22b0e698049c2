#include "ColourButton.h"

#include "Look.h"

#include <QColorDialog>
#include <QPainter>

ColourButton::ColourButton(QString const& name, QWidget* parent) : QPushButton(parent), _name(name)
{
    setAutoDefault(false);
    setIconSize({2 * Look::smallIcon, Look::smallIcon});
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &ColourButton::choose);
}

void ColourButton::setColour(QColor const& colour)
{
    _colour = colour;
    QPixmap swatch(iconSize() * devicePixelRatio());
    swatch.setDevicePixelRatio(devicePixelRatio());
    swatch.fill(colour);
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(QRectF(QPointF(0.5, 0.5), QSizeF(iconSize()) - QSizeF(1.0, 1.0)));
    painter.end();
    setIcon(swatch);
    setAccessibleName(tr("%1: colour %2").arg(_name, colour.name()));
    setToolTip(colour.name());
}

void ColourButton::choose()
{
    auto* const dialog = new QColorDialog(_colour, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(_name);
    connect(dialog, &QColorDialog::currentColorChanged, this, &ColourButton::chosen);
    connect(dialog, &QDialog::rejected, this, [this, before = _colour] { emit chosen(before); });
    dialog->open();
}
