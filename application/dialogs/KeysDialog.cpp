#include "KeysDialog.h"

#include <QAction>
#include <QHeaderView>
#include <QPushButton>
#include <QShowEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace
{

struct FixedKey {
    char const* keys;
    char const* words;
};

/// Keys that no menu has.
constexpr FixedKey fixedKeys[] = {
    {QT_TRANSLATE_NOOP("KeysDialog", "Escape"), QT_TRANSLATE_NOOP("KeysDialog", "Leave full screen, close a dialog")},
    {QT_TRANSLATE_NOOP("KeysDialog", "1 to 9"), QT_TRANSLATE_NOOP("KeysDialog", "Choose one of the open channels")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Page up, Page down"),
     QT_TRANSLATE_NOOP("KeysDialog", "Previous and next channel")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Ctrl with a click"),
     QT_TRANSLATE_NOOP("KeysDialog", "Open a channel beside the others, or close it")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Double click"), QT_TRANSLATE_NOOP("KeysDialog", "Full screen on and off")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Wheel"), QT_TRANSLATE_NOOP("KeysDialog", "Volume")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+Return"),
     QT_TRANSLATE_NOOP("KeysDialog", "In \"Open Video Stream\": open it beside what plays")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Tab, arrows"),
     QT_TRANSLATE_NOOP("KeysDialog", "Over the picture: go through the controls")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Space, P"),
     QT_TRANSLATE_NOOP("KeysDialog", "Over the picture: pause and go on")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Menu, Shift+F10"),
     QT_TRANSLATE_NOOP("KeysDialog", "The menu of what is chosen")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Return"), QT_TRANSLATE_NOOP("KeysDialog", "In the list: play the channel")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+Return"),
     QT_TRANSLATE_NOOP("KeysDialog", "In the list: open the channel beside the others")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Space"),
     QT_TRANSLATE_NOOP("KeysDialog", "In the list: a look at the channel, and back")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Ctrl+D"), QT_TRANSLATE_NOOP("KeysDialog", "In the list: favourite or not")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Delete"), QT_TRANSLATE_NOOP("KeysDialog", "In the list: delete the channel")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Letters"), QT_TRANSLATE_NOOP("KeysDialog", "In the list: filter or search")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Left, Right, Return"),
     QT_TRANSLATE_NOOP("KeysDialog", "In the carousel: turn it, choose what is in front")},
    {QT_TRANSLATE_NOOP("KeysDialog", "Alt with a letter"),
     QT_TRANSLATE_NOOP("KeysDialog", "What has that letter underlined")},
};

constexpr int shownRows = 16;

} // namespace

KeysDialog::KeysDialog(AppData& appData, QWidget* window)
    : OmbravisionDialog(appData, tr("Keys"), window), _window(window), _table(new QTreeWidget(this))
{
    setObjectName("keysDialog");
    setSizeGripEnabled(true);
    _table->setAccessibleName(tr("Keys and what they do"));
    _table->setHeaderLabels({tr("Key"), tr("What it does")});
    _table->setRootIsDecorated(false);
    _table->setAlternatingRowColors(true);
    _table->setUniformRowHeights(true);
    _table->setSortingEnabled(false);
    contents()->addWidget(_table, 1);
    addButton(QDialogButtonBox::Close)->setDefault(true);
    fill();
    int const rowHeight = fontMetrics().lineSpacing() + 4;
    _table->setMinimumSize(_table->columnWidth(0) + _table->columnWidth(1) + 2 * rowHeight, shownRows * rowHeight);
}

void KeysDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        fill(); // Menus may have come since.
    OmbravisionDialog::showEvent(event);
}

void KeysDialog::fill()
{
    _table->clear();
    auto const add = [this](QString const& keys, QString const& words) {
        _table->addTopLevelItem(new QTreeWidgetItem({keys, words}));
    };
    for (FixedKey const& key : fixedKeys)
        add(tr(key.keys), tr(key.words));
    for (QAction const* const action : _window->actions())
        for (QKeySequence const& keys : action->shortcuts())
            add(keys.toString(QKeySequence::NativeText), QString(action->text()).remove('&'));
    for (int column = 0; column < 2; ++column)
        _table->resizeColumnToContents(column);
}
