#include "TitleBar.h"

#include "ElidedLabel.h"
#include "Icons.h"
#include "Look.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QToolButton>
#include <QWindow>

TitleBar::TitleBar(QWidget& window, Buttons buttons)
    : QWidget(&window), _window(window), _canMaximise(buttons == Buttons::All), _leading(new QHBoxLayout),
      _title(new ElidedLabel(this))
{
    setObjectName("titleBar");
    setAttribute(Qt::WA_StyledBackground);
    _title->setAlignment(Qt::AlignCenter);
    _title->setAttribute(Qt::WA_TransparentForMouseEvents);
    _title->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(Look::grid, Look::halfGrid, Look::halfGrid, Look::halfGrid);
    layout->setSpacing(Look::halfGrid);
    layout->addLayout(_leading);
    layout->addWidget(_title, 1);
    if (_canMaximise) {
        QToolButton* const minimise = addButton(tr("Minimise"));
        minimise->setIcon(Icons::icon(Icon::Minimise));
        connect(minimise, &QToolButton::clicked, &_window, &QWidget::showMinimized);
        _maximise = addButton(tr("Maximise"));
        connect(_maximise, &QToolButton::clicked, this, &TitleBar::toggleMaximised);
    }
    QToolButton* const close = addButton(tr("Close"));
    close->setIcon(Icons::icon(Icon::Close));
    connect(close, &QToolButton::clicked, &_window, &QWidget::close);
    _window.installEventFilter(this);
    followWindow();
}

QToolButton* TitleBar::addButton(QString const& name)
{
    auto* const button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setIconSize({Look::smallIcon, Look::smallIcon});
    button->setAccessibleName(name);
    button->setToolTip(name);
    layout()->addWidget(button);
    return button;
}

void TitleBar::followWindow()
{
    _title->setFullText(_window.windowTitle());
    if (!_maximise)
        return;
    QString const name = _window.isMaximized() ? tr("Restore") : tr("Maximise");
    _maximise->setIcon(Icons::icon(_window.isMaximized() ? Icon::Restore : Icon::Maximise));
    _maximise->setAccessibleName(name);
    _maximise->setToolTip(name);
}

void TitleBar::toggleMaximised()
{
    if (_canMaximise)
        _window.setWindowState(_window.windowState() ^ Qt::WindowMaximized);
}

bool TitleBar::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowTitleChange || event->type() == QEvent::WindowStateChange)
        followWindow();
    return QWidget::eventFilter(watched, event);
}

void TitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        _pressed = event->position().toPoint();
}

void TitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (!_pressed || !(event->buttons() & Qt::LeftButton) ||
        (event->position().toPoint() - *_pressed).manhattanLength() < QApplication::startDragDistance())
        return;
    _pressed.reset(); // The window manager goes on with it, and has the release, too.
    _window.windowHandle()->startSystemMove();
}

void TitleBar::mouseReleaseEvent(QMouseEvent*)
{
    _pressed.reset();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        toggleMaximised();
}
