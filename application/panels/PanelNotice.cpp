#include "PanelNotice.h"

#include "Look.h"

#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr qsizetype maximumNotice = 1000; // Some of it comes from outside.
} // namespace

PanelNotice::PanelNotice(QWidget* parent)
    : QWidget(parent), _icon(new QLabel(this)), _text(new QLabel(this)), _progress(new QProgressBar(this)),
      _button(new QPushButton(this))
{
    _icon->setAlignment(Qt::AlignCenter);
    _text->setObjectName("notice");
    _text->setTextFormat(Qt::PlainText);
    _text->setWordWrap(true);
    _text->setAlignment(Qt::AlignCenter);
    _text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    _progress->setRange(0, 0);
    _progress->setTextVisible(false);
    _progress->setAccessibleName(tr("Progress"));
    _button->setObjectName("noticeButton");
    connect(_button, &QPushButton::clicked, this, &PanelNotice::buttonClicked);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Look::margin, Look::margin, Look::margin, Look::margin);
    layout->setSpacing(Look::grid);
    layout->addStretch(1);
    layout->addWidget(_icon);
    layout->addWidget(_text);
    layout->addWidget(_progress);
    layout->addWidget(_button, 0, Qt::AlignHCenter);
    layout->addStretch(2);
}

void PanelNotice::tell(Icon icon, QString const& text, QString const& button)
{
    _shownIcon = icon;
    drawIcon();
    _icon->show();
    _progress->hide();
    show(text, button);
}

/// A pixmap does not follow the palette.
void PanelNotice::drawIcon()
{
    _icon->setPixmap(Icons::icon(_shownIcon).pixmap({Look::largeIcon, Look::largeIcon}, devicePixelRatioF()));
}

void PanelNotice::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        drawIcon();
}

void PanelNotice::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    drawIcon(); // It may be another screen.
}

void PanelNotice::tellProgress(QString const& text, QString const& button)
{
    _icon->hide();
    _progress->show();
    show(text, button);
}

void PanelNotice::show(QString const& text, QString const& button)
{
    _text->setText(text.left(maximumNotice));
    _text->setAccessibleName(_text->text());
    _button->setText(button);
    _button->setVisible(!button.isEmpty());
}
