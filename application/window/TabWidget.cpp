#include "TabWidget.h"

#include "AppSettings.h"

#include <QKeyEvent>
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
    tabBar()->installEventFilter(this);
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

/// With the focus on the tabs the arrows choose one, and do not seek.
bool TabWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == tabBar() && event->type() == QEvent::ShortcutOverride) {
        auto const* const key = static_cast<QKeyEvent*>(event);
        bool const isArrow = key->key() == Qt::Key_Left || key->key() == Qt::Key_Right;
        if (isArrow && (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
            event->accept();
    }
    return QTabWidget::eventFilter(watched, event);
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
