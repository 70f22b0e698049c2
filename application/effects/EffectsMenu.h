#pragma once

#include <QObject>

class AppSettings;
class EffectsLibrary;
class QMenu;

/// Fills a menu with the effects, each with a mark while it is on, after some entries that stay. Main thread only.
class EffectsMenu : public QObject
{
    Q_OBJECT

public:
    /// All are borrowed; the menu is the parent.
    EffectsMenu(EffectsLibrary& library, AppSettings& settings, QMenu* menu);

private:
    void fill();
    void onChosen(QString const& name, bool isOn);

    EffectsLibrary& _library;
    AppSettings& _settings;
    QMenu* const _menu;
};
