#include "TabWidget.h"

#include "AppSettings.h"

#include <QScopedValueRollback>
#include <QTabBar>

TabWidget::TabWidget(AppSettings& settings, QWidget* parent) : QTabWidget(parent), _settings(settings)
{
    setObjectName("tabs");
    setDocumentMode(true);
    setMovable(true);
    setElideMode(Qt::ElideRight);
    setUsesScrollButtons(true);
    tabBar()->setExpanding(true);
    tabBar()->setAccessibleName(tr("Tabs"));
    connect(tabBar(), &QTabBar::tabMoved, this, &TabWidget::keep);
    connect(&_settings, &AppSettings::tabPositionsChanged, this, &TabWidget::restore);
}

int TabWidget::addTab(QWidget* page, QString const& text)
{
    _pages.append(page);
    QTabWidget::addTab(page, text);
    restore();
    return indexOf(page);
}

void TabWidget::keep()
{
    if (_isRestoring)
        return;
    QList<int> positions;
    for (int i = 0; i < count(); ++i)
        positions.append(static_cast<int>(_pages.indexOf(widget(i))));
    _settings.setTabPositions(positions);
}

void TabWidget::restore()
{
    QScopedValueRollback const guard(_isRestoring, true);
    int place = 0;
    for (int const number : _settings.tabPositions()) {
        int const from = number >= 0 && number < _pages.size() ? indexOf(_pages.at(number)) : -1;
        if (from < place) // There is no such tab yet, or it is named twice.
            continue;
        tabBar()->moveTab(from, place++);
    }
}
