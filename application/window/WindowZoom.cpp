#include "WindowZoom.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "GLWidget.h"

#include <QAction>
#include <QEvent>
#include <QLayout>
#include <QScreen>

namespace
{
constexpr int zoomRestTime = 200; // ms
}

WindowZoom::WindowZoom(AppData& appData, GLWidget& glWidget, QWidget& window)
    : _appData(appData), _glWidget(glWidget), _window(window), _factors(nullptr)
{
    _factors.setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    createFactors();
    connectDrawModes();
    _rest.setSingleShot(true);
    _rest.setInterval(zoomRestTime);
    connect(&_rest, &QTimer::timeout, this, &WindowZoom::check);
    connect(&_appData, &AppData::channelChanged, &_rest, qOverload<>(&QTimer::start));
    connect(_appData.channelManager(), &ChannelManager::streamOpened, &_rest, qOverload<>(&QTimer::start));
    connect(&_appData.settings, &AppSettings::drawModeChanged, &_rest, qOverload<>(&QTimer::start));
    _glWidget.installEventFilter(this);
}

void WindowZoom::createFactors()
{
    using Slot = void (WindowZoom::*)();
    constexpr std::pair<int, Slot> entries[] = {{25, &WindowZoom::onZoom25},   {50, &WindowZoom::onZoom50},
                                                {75, &WindowZoom::onZoom75},   {100, &WindowZoom::onZoom100},
                                                {125, &WindowZoom::onZoom125}, {150, &WindowZoom::onZoom150},
                                                {175, &WindowZoom::onZoom175}, {200, &WindowZoom::onZoom200}};
    for (auto const& [percent, slot] : entries) {
        QAction* const action = _factors.addAction(tr("%1 %").arg(percent));
        action->setCheckable(true);
        action->setData(percent / 100.0);
        connect(action, &QAction::triggered, this, slot);
    }
}

void WindowZoom::connectDrawModes()
{
    using Slot = void (WindowZoom::*)();
    constexpr std::pair<MenuAction, Slot> entries[] = {
        {MenuAction::HalfSize, &WindowZoom::onDrawModeHalfSize},
        {MenuAction::NormalSize, &WindowZoom::onDrawModeNormalSize},
        {MenuAction::DoubleSize, &WindowZoom::onDrawModeDoubleSize},
        {MenuAction::Stretch, &WindowZoom::onDrawModeStretch},
        {MenuAction::TouchInside, &WindowZoom::onDrawModeTouchInside},
        {MenuAction::TouchOutside, &WindowZoom::onDrawModeTouchOutside}};
    for (auto const& [action, slot] : entries)
        connect(_appData.settings.action(action), &QAction::triggered, this, slot);
}

void WindowZoom::setDrawMode(int mode)
{
    _appData.settings.setDrawMode(mode);
}

void WindowZoom::zoom(double factor)
{
    _rest.start();
    Channel const* const channel = _appData.channelManager()->activeChannel();
    if (!channel || channel->movieSize().isEmpty() || _appData.settings.showFullScreen())
        return;
    if (_window.isMaximized())
        _window.setWindowState(_window.windowState() & ~Qt::WindowMaximized);
    _window.layout()->activate();
    QSize const around = _window.size() - _glWidget.size(); // Menu bar, tabs.
    QSize const frame = _window.frameGeometry().size() - _window.size();
    QSize const room = _window.screen()->availableSize() - frame - around;
    QSize video = channel->movieSize() * factor / _window.devicePixelRatio();
    if (video.width() > room.width() || video.height() > room.height())
        video.scale(room, Qt::KeepAspectRatio);
    resizeWindow(video + around);
}

void WindowZoom::resizeWindow(QSize const& size)
{
    _ownSize = size;
    QSize const grown = _window.frameGeometry().size() + size - _window.size();
    _window.resize(size);
    QRect const room = _window.screen()->availableGeometry();
    QPoint const lastCorner = room.bottomRight() - QPoint(grown.width() - 1, grown.height() - 1);
    QPoint const corner(qMax(room.left(), qMin(_window.x(), lastCorner.x())),
                        qMax(room.top(), qMin(_window.y(), lastCorner.y())));
    if (_window.isVisible() && corner != _window.pos())
        _window.move(corner);
}

void WindowZoom::check()
{
    double const shown = _glWidget.calculateZoom();
    for (QAction* const action : _factors.actions())
        action->setChecked(shown > 0.0 && action->data().toDouble() == shown);
}

bool WindowZoom::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        _rest.start();
    return QObject::eventFilter(watched, event);
}
