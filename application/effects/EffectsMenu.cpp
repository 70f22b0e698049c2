#include "EffectsMenu.h"

#include "AppSettings.h"
#include "EffectNames.h"
#include "EffectsLibrary.h"
#include "PlainToolTip.h"

#include <QAction>
#include <QMenu>

EffectsMenu::EffectsMenu(EffectsLibrary& library, AppSettings& settings, QMenu* menu)
    : QObject(menu), _library(library), _settings(settings), _menu(menu)
{
    menu->addAction(settings.action(MenuAction::VideoPostProcessing));
    menu->addAction(settings.action(MenuAction::EditVideoPostProcessing));
    menu->addSeparator();
    connect(&library, &EffectsLibrary::changed, this, &EffectsMenu::fill);
    fill();
}

void EffectsMenu::fill()
{
    for (QAction* const action : _menu->findChildren<QAction*>(QStringLiteral("effect"), Qt::FindDirectChildrenOnly))
        action->deleteLater(); // It may be the one that was chosen just now.
    for (QAction* const action : _menu->actions())
        if (action->objectName() == QLatin1String("effect"))
            _menu->removeAction(action);
    for (Effect const& effect : _library.effects()) {
        QAction* const action = _menu->addAction(EffectNames::shown(effect).replace('&', "&&"));
        action->setObjectName("effect");
        action->setCheckable(true);
        action->setChecked(effect.isOn);
        action->setEnabled(_library.isLoaded());
        action->setToolTip(plainToolTip(effect.fault));
        connect(action, &QAction::triggered, this, [this, name = effect.name](bool isOn) { onChosen(name, isOn); });
    }
}

void EffectsMenu::onChosen(QString const& name, bool isOn)
{
    _library.setOn(name, isOn);
    bool isAnyOn = false;
    for (Effect const& effect : _library.effects())
        isAnyOn = isAnyOn || effect.isOn;
    if (isOn || !isAnyOn) // With all of them off, one less shows none of the others.
        _settings.setEnableVideoPostProcessing(isOn);
}
