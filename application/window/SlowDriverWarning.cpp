#include "SlowDriverWarning.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "Icons.h"
#include "Look.h"
#include "OmbravisionDialog.h"

#include <QHBoxLayout>
#include <QLabel>

namespace
{
constexpr int warningWidth = 60; // Average characters in a line.
}

SlowDriverWarning::SlowDriverWarning(AppData& appData, QWidget& window) : _appData(appData), _window(window)
{
    connect(_appData.channelManager(), &ChannelManager::channelClosed, this, &SlowDriverWarning::look,
            Qt::QueuedConnection);
}

SlowDriverWarning::~SlowDriverWarning()
{
    delete _dialog;
}

void SlowDriverWarning::onSurfaceInitialized()
{
    _isSlow = _appData.videoPrograms.drawsInSoftware();
    look();
}

void SlowDriverWarning::look()
{
    if (_isSlow && !_appData.settings.toldOfSlowDriver() && _window.isVisible() &&
        !_appData.channelManager()->isBusy())
        onWarnAboutSlowDisplayDriver();
}

void SlowDriverWarning::onWarnAboutSlowDisplayDriver()
{
    _appData.settings.setToldOfSlowDriver(true);
    delete _dialog;
    _dialog = new OmbravisionDialog(_appData, tr("Ombravision"), &_window);
    auto* const sign = new QLabel(_dialog);
    sign->setPixmap(
        Icons::icon(Icon::Warning).pixmap(QSize(Look::largeIcon, Look::largeIcon), _dialog->devicePixelRatioF()));
    sign->setAlignment(Qt::AlignTop);
    sign->setAccessibleName(tr("Warning"));
    auto* const words = new QLabel(
        tr("Ombravision has detected that your system does not have a proper opengl graphics driver installed."
           "<br>This will cause Ombravision to run slowly especially in fullscreen mode.<br>Please install the "
           "driver of the maker of your graphics card, or the package that your distribution has for it, and start "
           "Ombravision again."),
        _dialog);
    words->setTextFormat(Qt::RichText);
    words->setWordWrap(true);
    words->setMinimumWidth(words->fontMetrics().averageCharWidth() * warningWidth);
    auto* const line = new QHBoxLayout;
    line->setSpacing(Look::margin);
    line->addWidget(sign, 0, Qt::AlignTop);
    line->addWidget(words, 1);
    _dialog->contents()->addLayout(line);
    _dialog->addButton(QDialogButtonBox::Ok);
    _dialog->setAttribute(Qt::WA_DeleteOnClose);
    _dialog->setAttribute(Qt::WA_ShowWithoutActivating);
    _dialog->show();
}
