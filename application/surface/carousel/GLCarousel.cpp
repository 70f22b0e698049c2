#include "GLCarousel.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "Look.h"

#include <algorithm>
#include <cmath>
#include <qopengl.h>
#include <utility>
#include <vector>

namespace
{
constexpr int reach = 5;       ///< Slides to either side of the middle that are drawn.
constexpr int playDelay = 700; ///< ms that a channel is in the middle before it is opened.
constexpr int texturesPerFrame = 2;
// Of the carousel's space, in which the surface is 1 high at the distance of the middle card.
constexpr double middleDistance = 1.5;
constexpr double nearPlane = 0.1;
constexpr double farPlane = 10.0;
constexpr double sideGap = 0.62; ///< From the middle card to the first beside it.
constexpr double nextGap = 0.26; ///< From there on.
constexpr double sideDepth = 0.45;
constexpr double sideTurn = 58.0;  ///< Degrees, of the cards beside the middle.
constexpr double raised = 0.07;    ///< The cards, over the middle of the surface.
constexpr double darkening = 0.16; ///< With each slide away from the middle.
constexpr double titleReach = 0.6; ///< Slides from the middle at which a title has faded.
} // namespace

GLCarousel::GLCarousel(AppData& appData, QObject* parent) : QObject(parent), _appData(appData)
{
    _position.setEasing(QEasingCurve::OutCubic);
    connect(&_position, &GLAnimation::valueChanged, this, &GLCarousel::onMoved);
    _playTimer.setSingleShot(true);
    _playTimer.setInterval(playDelay);
    connect(&_playTimer, &QTimer::timeout, this, &GLCarousel::playActive);
    connect(&_appData, &AppData::channelsUpdated, this, &GLCarousel::onChannelsUpdated);
    connect(&_appData, &AppData::channelChanged, this, [this](Channel*, Channel* to) { onChannelChanged(to); });
    connect(&_appData, &AppData::channelLogoUpdated, this, [this] {
        if (_isEntered)
            emit changed();
    });
}

GLCarousel::~GLCarousel() = default;

int GLCarousel::count() const
{
    return _appData.channelManager()->channelCount();
}

bool GLCarousel::enter()
{
    if (count() == 0)
        return false;
    _isEntered = true;
    _isPressed = false;
    _wheelRest = 0.0;
    QList<Channel*> const channels = _appData.channelManager()->channels();
    auto const active = static_cast<int>(channels.indexOf(_appData.channelManager()->activeChannel()));
    _target = std::max(active, 0);
    _position.setValue(_target);
    _activeChannel = channels.at(_target)->desc.rootId();
    _playTimer.start();
    emit activeChannelChanged(_activeChannel);
    emit changed();
    return true;
}

void GLCarousel::leave()
{
    if (!std::exchange(_isEntered, false))
        return;
    _playTimer.stop();
    _position.stop();
    setHovered(nullptr);
    _slides.clear();
    if (ChannelManager* const channels = _appData.channelManager()) // Null at the program's end.
        channels->dropPreparedChannel(std::exchange(_prepared, {}));
}

void GLCarousel::onChannelsUpdated()
{
    if (!_isEntered)
        return;
    if (count() == 0) {
        emit left();
        return;
    }
    // The one in the middle stays there, wherever in the list it is now.
    QList<Channel*> const channels = _appData.channelManager()->channels();
    auto const now =
        static_cast<int>(channels.indexOf(_appData.channelManager()->getChannelByRootId(_activeChannel)));
    setHovered(nullptr);
    _slides.clear();
    if (now >= 0)
        _position.setValue(_position.value() + now - _target);
    _target = std::clamp(now >= 0 ? now : _target, 0, count() - 1);
    moveTo(_target);
    emit changed();
}

/// What is chosen elsewhere, as in the list of channels, comes to the middle.
void GLCarousel::onChannelChanged(Channel const* to)
{
    if (!_isEntered || !to || to->desc.rootId() == _activeChannel)
        return;
    QList<Channel*> const channels = _appData.channelManager()->channels();
    auto const place = std::ranges::find(channels, to);
    if (place != channels.end())
        moveTo(static_cast<int>(place - channels.begin()));
}

void GLCarousel::moveTo(int index)
{
    _target = std::clamp(index, 0, std::max(0, count() - 1));
    _position.startTo(_target, Look::motion(Look::moveMilliseconds));
    Channel const* const channel = _appData.channelManager()->getChannelByIndex(_target);
    QString const rootId = channel ? channel->desc.rootId() : QString();
    _playTimer.start();
    if (std::exchange(_activeChannel, rootId) != rootId)
        emit activeChannelChanged(rootId);
}

void GLCarousel::step(int slides)
{
    moveTo(_target + slides);
}

void GLCarousel::onMoved()
{
    emit changed();
}

/// Opened unseen, it is ready when the viewer wants it, and its picture is there to be drawn meanwhile.
void GLCarousel::playActive()
{
    ChannelManager& channels = *_appData.channelManager();
    Channel* const channel = channels.getChannelByRootId(_activeChannel);
    if (!_isEntered || !channel || channels.isChannelOpen(channel) || channels.sponsorshipChannel() ||
        !channels.postSponsorshipChannelId().isEmpty())
        return;
    channels.prepareChannel(channel);
    _prepared = _activeChannel;
    channel->setOpacity(1.0);
}

void GLCarousel::openActive(bool beside)
{
    ChannelManager& channels = *_appData.channelManager();
    QString const rootId = _activeChannel;
    // One that has failed is connected again, as by any other click.
    ChannelClickAction const click = channels.channelClickAction(rootId, beside);
    bool const isRetry = click == ReconnectClickAction;
    channels.performChannelClickAction(rootId, isRetry ? click : beside ? AddClickAction : OpenClickAction);
    if (!beside && _prepared == rootId)
        // It plays on when the others have faded, unless the viewer changes their mind.
        QTimer::singleShot(
            2 * ChannelManager::fadeTime, &channels,
            [&channels, prepared = std::exchange(_prepared, {})] { channels.dropPreparedChannel(prepared); });
    emit left();
}

double GLCarousel::pixelsPerSlide(QSize const& surface)
{
    return std::max(1.0, surface.height() * sideGap / 2.0);
}

void GLCarousel::keepSlidesNear(int middle)
{
    std::erase_if(_slides, [&](auto const& entry) {
        Channel const* const channel = _appData.channelManager()->getChannelByIndex(entry.first);
        bool const isGone =
            std::abs(entry.first - middle) > reach || !channel || channel->desc.rootId() != entry.second->rootId();
        if (isGone && entry.second.get() == _hovered)
            setHovered(nullptr);
        return isGone;
    });
    for (int index = std::max(0, middle - reach); index <= std::min(count() - 1, middle + reach); ++index)
        if (!_slides.contains(index))
            _slides.emplace(index, std::make_unique<GLCarouselSlide>(
                                       _appData.channelManager()->getChannelByIndex(index)->desc.rootId()));
}

void GLCarousel::render(QSize const& surface, double zoom)
{
    _surface = surface;
    if (surface.isEmpty())
        return;
    double const position = _position.value();
    keepSlidesNear(static_cast<int>(std::lround(position)));
    double const aspect = static_cast<double>(surface.width()) / surface.height();
    // Where the middle card is as wide, or as high, as the surface.
    double const close = middleDistance * std::max(GLCarouselSlide::width / aspect, GLCarouselSlide::height);
    double const eye = close + (middleDistance - close) * zoom;
    double const half = nearPlane / middleDistance / 2;
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glFrustum(-half * aspect, half * aspect, -half, half, nearPlane, farPlane);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glTranslated(0.0, raised * zoom, -eye);
    glPushAttrib(GL_ENABLE_BIT | GL_COLOR_BUFFER_BIT | GL_CURRENT_BIT);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
    std::vector<int> order; // From behind.
    for (auto const& [index, slide] : _slides)
        order.push_back(index);
    std::ranges::sort(order, [position](int a, int b) { return std::abs(a - position) > std::abs(b - position); });
    GLCarouselSlide::Budget budget{texturesPerFrame};
    for (int const index : order)
        renderSlide(index, surface, budget);
    if (budget.isExceeded)
        QMetaObject::invokeMethod(this, &GLCarousel::changed, Qt::QueuedConnection);
    glPopAttrib();
    glPopMatrix();
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
}

void GLCarousel::renderSlide(int index, QSize const& surface, GLCarouselSlide::Budget& budget)
{
    GLCarouselSlide& slide = *_slides.at(index);
    Channel* const channel = _appData.channelManager()->getChannelByRootId(slide.rootId());
    if (!channel)
        return;
    double const away = index - _position.value();
    double const side = std::clamp(away, -1.0, 1.0);
    glPushMatrix();
    glTranslated(side * sideGap + (away - side) * nextGap, 0.0, -std::abs(side) * sideDepth);
    glRotated(-side * sideTurn, 0.0, 1.0, 0.0);
    double const opacity = std::clamp(1.0 - darkening * std::abs(away), 0.0, 1.0);
    double const titleOpacity = std::clamp(1.0 - std::abs(away) / titleReach, 0.0, 1.0);
    slide.render(*channel, opacity, titleOpacity, surface.height(), budget);
    glPopMatrix();
}
