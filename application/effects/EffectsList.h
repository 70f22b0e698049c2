#pragma once

#include <QList>
#include <QWidget>

#include <functional>

class EffectsLibrary;
class QLayout;
class QListWidget;
class QListWidgetItem;
class QToolButton;
struct Effect;

/// The effects in the order in which they are applied, to be chosen, switched and moved, and the buttons for what
/// else can be done with one: that is asked for by signals. Main thread only.
class EffectsList : public QWidget
{
    Q_OBJECT

public:
    static constexpr int letters = 18; ///< Room for a name.

    /// The library is borrowed.
    explicit EffectsList(EffectsLibrary& library, QWidget* parent = nullptr);

    /// The name of the one that is chosen; empty if none is.
    QString chosen() const;
    void choose(QString const& name);

signals:
    /// Another one is chosen, or something of the effects is different.
    void changed();
    /// The viewer has switched one on.
    void switchedOn();
    void newWanted();
    void duplicateWanted();
    void renameWanted();
    void removeWanted();

private:
    void createList();
    void addTool(QLayout* layout, int icon, QString const& text, std::function<void()> const& work);
    void fill();
    void showItem(QListWidgetItem* item, Effect const& effect);
    void onChosen();
    void onItemChanged(QListWidgetItem* item);
    void onReordered();
    void step(int by);
    void refreshTools();

    EffectsLibrary& _library;
    QListWidget* _list = nullptr;
    QList<QToolButton*> _tools;
    bool _isFilling = false;
};
