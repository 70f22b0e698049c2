#pragma once

#include <QTabWidget>

class AppSettings;

/// The tabs beside the picture. The viewer may change their order, which the settings keep: the number of each tab,
/// in the order in which they were added, from first to last. Main thread only.
class TabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit TabWidget(AppSettings& settings, QWidget* parent = nullptr);

    /// Adds a tab to those that there are, at the place that the settings have for it.
    int addTab(QWidget* page, QString const& text);
    /// Shows the tab of a page; nothing for another widget.
    void showPage(QWidget* page) { setCurrentWidget(page); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keep();
    void restore();

    AppSettings& _settings;
    QList<QWidget*> _pages; ///< As they were added.
    bool _isRestoring = false;
};
