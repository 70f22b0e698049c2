#include "Splitter.h"

#include "AppSettings.h"

namespace
{
constexpr int splitterRestTime = 500; // ms
}

Splitter::Splitter(AppSettings& settings, QWidget* parent) : QSplitter(Qt::Horizontal, parent), _settings(settings)
{
    setObjectName("splitter");
    setChildrenCollapsible(false);
    setAccessibleName(tr("Picture and tabs"));
    _rest.setSingleShot(true);
    _rest.setInterval(splitterRestTime);
    connect(&_rest, &QTimer::timeout, this, &Splitter::keep);
    connect(this, &QSplitter::splitterMoved, &_rest, qOverload<>(&QTimer::start));
    connect(&_settings, &AppSettings::splitterStateChanged, this, &Splitter::restore);
}

void Splitter::restore()
{
    // An empty state, or one of other parts, changes nothing.
    if (_settings.splitterState() != saveState())
        restoreState(_settings.splitterState());
    setChildrenCollapsible(false);
}

void Splitter::keep()
{
    _settings.setSplitterState(saveState());
}
