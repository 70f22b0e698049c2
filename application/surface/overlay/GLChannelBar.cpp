#include "GLChannelBar.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "LatteClient.h"
#include "Look.h"
#include "OverlayStyle.h"

#include <QAction>

#include <utility>

namespace
{
constexpr int tickInterval = 1000; ///< ms
constexpr int volumeWidth = 96;
constexpr int progressHeight = 24;
constexpr int logoSide = 28;
constexpr double quietVolume = 0.34;        ///< Below it the volume's icon has one wave.
constexpr int bigNumber = 60 * 60 * 10 - 1; ///< Seconds; what is longer makes the bar wider.
} // namespace

GLChannelBar::GLChannelBar(AppData& appData, GLControlStyle const& style, QObject* parent)
    : GLPanelControl("Bottom Bar", style, parent), _appData(appData), _progress("Progress Indicator", style),
      _time("Time", style), _logo("Channel Logo"), _previous("Previous Button", style), _play("Play Button", style),
      _next("Next Button", style), _mute("Mute Button", style), _volume("Volume Control", style),
      _recordTime("Recording Time", style), _record("Record Button", style), _screenshot("Screenshot Button", style),
      _carousel("Carousel Button", style), _multiview("Multiview Button", style),
      _fullScreen("Full Screen Button", style), _space("Space")
{
    setLabel(tr("Playback"));
    createControls();
    connectControls();
    updateVolume();
    updateRecording();
    updateChannel();
}

void GLChannelBar::createControls()
{
    _progress.setLabel(tr("Position"));
    _volume.setLabel(tr("Volume"));
    _logo.setLabel(tr("Channel logo"));
    _time.setColour(style().dimText);
    _time.setAlignment(Qt::AlignRight);
    _recordTime.setColour(style().alert);
    _recordTime.setAlignment(Qt::AlignRight);
    _record.setCheckedColour(style().alert);
    QString const longest = GLProgressIndicator::timeText(bigNumber);
    _time.setText(tr("%1 / %2").arg(longest, longest));
    _widestTime = _time.preferredSize().width();
    _time.setText({});
    _space.setDecoration(true);
    for (GLControl* const quietOne : std::initializer_list<GLControl*>{&_time, &_logo, &_recordTime, &_space})
        quietOne->setPassedThrough(true);
    struct Face {
        GLButtonControl& button;
        Icon icon;
        QString label;
    };
    for (Face const& face :
         {Face{_previous, Icon::Previous, tr("Previous channel (Page Up)")},
          Face{_next, Icon::Next, tr("Next channel (Page Down)")}, Face{_record, Icon::Record, tr("Record")},
          Face{_screenshot, Icon::Screenshot, tr("Take a screenshot")},
          Face{_carousel, Icon::Carousel, tr("Channel carousel")}}) {
        face.button.setIcon(OverlayStyle::icon(face.icon));
        face.button.setLabel(face.label);
    }
    for (GLControl* const control : std::initializer_list<GLControl*>{
             &_progress, &_time, &_logo, &_previous, &_play, &_next, &_mute, &_volume, &_space, &_recordTime,
             &_record, &_screenshot, &_carousel, &_multiview, &_fullScreen})
        addControl(control);
}

void GLChannelBar::connectControls()
{
    AppSettings& settings = _appData.settings;
    ChannelManager* const channels = _appData.channelManager();
    auto const on = [this](GLButtonControl& button, auto&& slot) {
        connect(&button, &GLButtonControl::clicked, this, slot);
    };
    on(_previous, [channels] { channels->openNeighbour(-1); });
    on(_next, [channels] { channels->openNeighbour(1); });
    on(_play, [channels] { channels->setPaused(!channels->isPaused()); });
    on(_mute, [&settings] { settings.setMuted(!settings.muted()); });
    on(_record, [&settings] { settings.setRecord(!settings.record()); });
    on(_screenshot, [this] { emit screenshotPressed(); });
    on(_carousel, [&settings] { settings.setCarouselMode(true); });
    on(_multiview, [this] { onMultiviewPressed(); });
    on(_fullScreen, [&settings] { settings.setShowFullScreen(!settings.showFullScreen()); });
    connect(&_volume, &GLValueControl::valueChosen, &settings, &AppSettings::setVolume);
    connect(&_progress, &GLValueControl::valueReleased, channels, &ChannelManager::setMovieTime);
    connect(&_progress, &GLValueControl::valueReleased, this, &GLChannelBar::updateTime);
    connect(&settings, &AppSettings::volumeChanged, this, &GLChannelBar::updateVolume);
    connect(&settings, &AppSettings::muteChanged, this, &GLChannelBar::updateVolume);
    connect(&settings, &AppSettings::recordChanged, this, &GLChannelBar::updateRecording);
    connect(channels, &ChannelManager::pausedChanged, this, &GLChannelBar::updateChannel);
    connect(channels, &ChannelManager::streamOpened, this, &GLChannelBar::updateChannel);
    _second.setInterval(tickInterval);
    connect(&_second, &QTimer::timeout, this, &GLChannelBar::updateTime);
    connect(this, &GLCanvas::visibilityChanged, this, [this](bool visible) {
        if (visible) {
            updateChannel();
            _second.start();
        } else {
            _second.stop();
        }
    });
}

void GLChannelBar::updateChannel()
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    QString const id = channel ? channel->desc.rootId() : QString();
    if (std::exchange(_shown, id) != id)
        _progress.mouseCancel(); // It was another film that the viewer was about to move in.
    updateLogo(channel);
    updatePlay(channel);
    updateMultiview();
    updateTime();
    recalcLayout(scale());
}

void GLChannelBar::updateLogo(Channel const* channel)
{
    // One of the viewer's own has no logo but the one that all such have.
    constexpr int withoutLogo = ChannelDescription::FileChannel | ChannelDescription::UserStreamChannel;
    bool const hasLogo = channel && (channel->desc.channelType() & withoutLogo) == 0;
    qint64 const key = hasLogo ? channel->desc.packedLogo().key() : 0;
    bool const isSameKey = std::exchange(_logoKey, key) == key;
    if (std::exchange(_logoScale, scale()) == scale() && isSameKey)
        return; // Each key that seeks comes here.
    QImage logo = hasLogo ? channel->desc.logo() : QImage();
    if (!logo.isNull()) // Drawn in a square of few pixels: however large it is, no more of it is kept.
        logo = logo.scaled(QSize(logoSide, logoSide) * scale(), Qt::KeepAspectRatio, Qt::SmoothTransformation)
                   .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    _logo.setImage(logo);
}

void GLChannelBar::updatePlay(Channel const* channel)
{
    _isPausable = channel && channel->isSeekable();
    bool const isPaused = channel && channel->isPaused();
    _play.setIcon(OverlayStyle::icon(isPaused ? Icon::Play : Icon::Pause));
    _play.setLabel(isPaused ? tr("Play (Space)") : tr("Pause (Space)"));
}

void GLChannelBar::updateMultiview()
{
    AppSettings const& settings = _appData.settings;
    bool const areSeveral = _appData.channelManager()->openChannels().size() > 1;
    _multiview.setIcon(OverlayStyle::icon(Icon::Multiview));
    _multiview.setChecked(areSeveral);
    _multiview.setLabel(areSeveral ? tr("Show only this channel") : tr("Show another channel beside this one"));
    _fullScreen.setIcon(OverlayStyle::icon(settings.showFullScreen() ? Icon::LeaveFullScreen : Icon::FullScreen));
    _fullScreen.setLabel(settings.showFullScreen() ? tr("Leave full screen (Escape)") : tr("Full screen (Ctrl+F)"));
}

void GLChannelBar::updateVolume()
{
    AppSettings const& settings = _appData.settings;
    bool const isSilent = settings.muted() || settings.volume() <= 0.0;
    _volume.setValue(settings.volume());
    _volume.setMuted(isSilent);
    _mute.setIcon(OverlayStyle::icon(isSilent                          ? Icon::Muted
                                     : settings.volume() < quietVolume ? Icon::VolumeLow
                                                                       : Icon::Volume));
    _mute.setChecked(settings.muted());
    _mute.setLabel(settings.muted() ? tr("Sound on (Ctrl+M)") : tr("Mute (Ctrl+M)"));
}

void GLChannelBar::updateRecording()
{
    bool const records = _appData.settings.record();
    if (records && !_recording.isValid())
        _recording.start();
    else if (!records)
        _recording.invalidate();
    _record.setChecked(records);
    _record.setLabel(records ? tr("Stop recording") : tr("Record"));
    updateTime();
    recalcLayout(scale());
}

std::optional<double> GLChannelBar::bufferLevel(Channel const& channel)
{
    QList<LatteClient const*> const clients = channel.latteClients();
    if (clients.isEmpty() || clients.constFirst()->bufferByteLength() <= 0)
        return std::nullopt;
    LatteClient const& client = *clients.constFirst();
    return std::min(1.0,
                    static_cast<double>(client.bytesBuffered()) / static_cast<double>(client.bufferByteLength()));
}

void GLChannelBar::updateTime()
{
    if (_recording.isValid())
        _recordTime.setText(GLProgressIndicator::timeText(static_cast<double>(_recording.elapsed()) / tickInterval));
    Channel const* const channel = _appData.channelManager()->activeChannel();
    double const duration = channel ? channel->movieDuration() : 0.0;
    if (channel && duration > 0.0) {
        if (!_progress.isDragged())
            _progress.showTime(channel->movieTime(), duration);
        _time.setText(tr("%1 / %2").arg(GLProgressIndicator::timeText(_progress.value()),
                                        GLProgressIndicator::timeText(duration)));
    } else {
        _progress.showBuffer(channel ? bufferLevel(*channel) : std::nullopt);
        _time.setText(channel ? _progress.valueText() : QString());
    }
    if (channel && channel->isSeekable() != _isPausable)
        updateChannel(); // It has become known meanwhile.
}

void GLChannelBar::onMultiviewPressed()
{
    ChannelManager& channels = *_appData.channelManager();
    QList<Channel*> const open = channels.openChannels();
    if (open.size() > 1) {
        for (Channel* const channel : open)
            if (channel != channels.activeChannel())
                channels.closeChannel(channel);
        return;
    }
    Channel* next = channels.nextChannel(channels.activeChannel());
    if (next && !channels.isChannelOpen(next))
        channels.performChannelClickAction(next->desc.rootId(), AddClickAction);
}

void GLChannelBar::recalcLayout(double scale)
{
    QRectF const inside =
        QRectF(QPointF(), geometry().size()).adjusted(Look::grid, Look::grid, -Look::grid, -Look::grid);
    arrange({{.control = &_progress, .width = 2.0 * Look::target, .importance = 2, .stretch = 1.0},
             {.control = &_time,
              .width = std::max(_time.preferredSize().width(), _widestTime),
              .importance = 1,
              .gap = Look::grid}},
            QRectF(inside.topLeft(), QSizeF(inside.width(), progressHeight)));
    arrangeButtons(QRectF(inside.left(), inside.bottom() - Look::target, inside.width(), Look::target));
    GLPanelControl::recalcLayout(scale);
}

void GLChannelBar::arrangeButtons(QRectF const& row)
{
    bool const hasNeighbours = _appData.channelManager()->channelCount() > 1;
    bool const records = _appData.settings.record();
    double const target = Look::target;
    double const group = 2.0 * Look::grid;
    // Back is left of forward in every language.
    arrange(
        {{.control = &_logo, .width = logoSide, .importance = 2, .isWanted = !_logo.image().isNull()},
         {.control = isMirrored() ? &_next : &_previous,
          .width = target,
          .importance = 6,
          .gap = Look::halfGrid,
          .isWanted = hasNeighbours},
         {.control = &_play, .width = target, .importance = 10, .isWanted = _isPausable},
         {.control = isMirrored() ? &_previous : &_next, .width = target, .importance = 6, .isWanted = hasNeighbours},
         {.control = &_mute, .width = target, .importance = 9, .gap = Look::grid},
         {.control = &_volume, .width = volumeWidth, .importance = 7},
         {.control = &_space, .importance = 100, .stretch = 1.0},
         {.control = &_recordTime,
          .width = std::max<double>(_recordTime.preferredSize().width(), target),
          .importance = 3,
          .isWanted = records},
         {.control = &_record, .width = target, .importance = 5},
         {.control = &_screenshot, .width = target, .importance = 3},
         {.control = &_carousel, .width = target, .importance = 1, .gap = group, .isWanted = hasNeighbours},
         {.control = &_multiview, .width = target, .importance = 4, .isWanted = hasNeighbours},
         {.control = &_fullScreen, .width = target, .importance = 8}},
        row);
    // The logo keeps its shape in the middle of its place, each of its pixels on one of the screen.
    if (_logo.image().isNull())
        return;
    QSizeF const size = QSizeF(_logo.image().size()) / scale();
    QRectF place(QPointF(), size);
    place.moveCenter(_logo.geometry().center());
    _logo.setGeometry(place);
}
