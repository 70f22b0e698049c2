#include "OmbravisionDialog.h"

#include "AppData.h"
#include "FittingScrollArea.h"
#include "Look.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <utility>

OmbravisionDialog::OmbravisionDialog(AppData& appData, QString const& title, QWidget* parent)
    : QDialog(parent), _data(appData), _frame(new SkinFrame(*this, appData.settings, TitleBar::Buttons::Close)),
      _heading(new QLabel(this)), _contents(nullptr), _buttons(new QDialogButtonBox(this))
{
    setWindowTitle(title);
    auto* const body = new QWidget;
    _contents = new QVBoxLayout(body);
    _contents->setContentsMargins(0, 0, 0, 0);
    _contents->setSpacing(Look::grid);
    auto* const area = new FittingScrollArea(body, this);

    QFont font = _heading->font();
    font.setPointSizeF(font.pointSizeF() * Look::titleSize);
    _heading->setFont(font);
    _heading->setTextFormat(Qt::PlainText);
    _heading->setWordWrap(true);
    _heading->hide();
    _buttons->hide();
    connect(_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    QVBoxLayout* const layout = _frame->contents();
    layout->setContentsMargins(Look::margin, Look::margin, Look::margin, Look::margin);
    layout->setSpacing(Look::margin);
    layout->addWidget(_heading);
    layout->addWidget(area, 1);
    layout->addWidget(_buttons);
}

void OmbravisionDialog::setHeading(QString const& text)
{
    _heading->setText(text);
    _heading->setVisible(!text.isEmpty());
}

QPushButton* OmbravisionDialog::addButton(QDialogButtonBox::StandardButton button)
{
    _buttons->show();
    return _buttons->addButton(button);
}

QPushButton* OmbravisionDialog::addButton(QString const& text, QDialogButtonBox::ButtonRole role)
{
    _buttons->show();
    return _buttons->addButton(text, role);
}

void OmbravisionDialog::setBorderRadius(int radius)
{
    _frame->radius = radius;
    _frame->generateSkinMask();
    update();
}

void OmbravisionDialog::setBorderColourInside(QString const& colour)
{
    _frame->colourInside = QColor(colour);
    update();
}

void OmbravisionDialog::setBorderColourOutside(QString const& colour)
{
    _frame->colourOutside = QColor(colour);
    update();
}

bool OmbravisionDialog::focusNextPrevChild(bool next)
{
    putButtonsLast(); // Each time: what the dialog is about may have come after them.
    return QDialog::focusNextPrevChild(next);
}

/// In the order of the tab key, as they are to the eye.
void OmbravisionDialog::putButtonsLast()
{
    QList<QWidget*> buttons;
    QWidget* last = nullptr;
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain()) {
        if (_buttons->isAncestorOf(widget))
            buttons.append(widget);
        else if (widget->focusPolicy() != Qt::NoFocus)
            last = widget;
    }
    for (QWidget* const button : buttons)
        if (QWidget* const before = std::exchange(last, button))
            setTabOrder(before, button);
}

void OmbravisionDialog::paintEvent(QPaintEvent* event)
{
    QDialog::paintEvent(event);
    _frame->paint();
}
