#include "OmbravisionWidget.h"

#include "AppData.h"

OmbravisionWidget::OmbravisionWidget(AppData& appData, QWidget* parent, Qt::WindowFlags flags,
                                     TitleBar::Buttons buttons)
    : QWidget(parent, flags), _data(appData), _frame(new SkinFrame(*this, appData.settings, buttons))
{
}

void OmbravisionWidget::setBorderRadius(int radius)
{
    _frame->radius = radius;
    generateSkinMask();
    update();
}

void OmbravisionWidget::setBorderColourInside(QString const& colour)
{
    _frame->colourInside = QColor(colour);
    update();
}

void OmbravisionWidget::setBorderColourOutside(QString const& colour)
{
    _frame->colourOutside = QColor(colour);
    update();
}

void OmbravisionWidget::paintEvent(QPaintEvent*)
{
    _frame->paint();
}
