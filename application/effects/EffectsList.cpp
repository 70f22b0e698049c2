#include "EffectsList.h"

#include "EffectNames.h"
#include "EffectsLibrary.h"
#include "Icons.h"
#include "Look.h"
#include "PlainToolTip.h"

#include <QListWidget>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QVBoxLayout>

EffectsList::EffectsList(EffectsLibrary& library, QWidget* parent) : QWidget(parent), _library(library)
{
    createList();
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Look::grid);
    layout->addWidget(_list, 1);
    auto* const tools = new QHBoxLayout;
    tools->setSpacing(Look::halfGrid);
    layout->addLayout(tools);
    addTool(tools, static_cast<int>(Icon::Add), tr("New"), [this] { emit newWanted(); });
    addTool(tools, static_cast<int>(Icon::Copy), tr("Duplicate"), [this] { emit duplicateWanted(); });
    addTool(tools, static_cast<int>(Icon::Edit), tr("Rename"), [this] { emit renameWanted(); });
    addTool(tools, static_cast<int>(Icon::Delete), tr("Delete"), [this] { emit removeWanted(); });
    addTool(tools, static_cast<int>(Icon::Up), tr("Earlier"), [this] { step(-1); });
    addTool(tools, static_cast<int>(Icon::Down), tr("Later"), [this] { step(1); });
    tools->addStretch();
    connect(&_library, &EffectsLibrary::changed, this, &EffectsList::fill);
    fill();
    _list->setCurrentRow(0);
}

void EffectsList::createList()
{
    _list = new QListWidget(this);
    _list->setObjectName("effects");
    _list->setAccessibleName(tr("Effects, in the order in which they are applied"));
    _list->setDragDropMode(QAbstractItemView::InternalMove);
    _list->setMinimumWidth(letters * fontMetrics().averageCharWidth());
    connect(_list, &QListWidget::currentItemChanged, this, &EffectsList::onChosen);
    connect(_list, &QListWidget::itemChanged, this, &EffectsList::onItemChanged);
    // Queued: the view is not done with the move then.
    connect(_list->model(), &QAbstractItemModel::rowsMoved, this, &EffectsList::onReordered, Qt::QueuedConnection);
    connect(_list->model(), &QAbstractItemModel::rowsRemoved, this, &EffectsList::onReordered, Qt::QueuedConnection);
}

void EffectsList::addTool(QLayout* layout, int icon, QString const& text, std::function<void()> const& work)
{
    auto* const tool = new QToolButton(this);
    tool->setIcon(Icons::icon(static_cast<Icon>(icon)));
    tool->setIconSize({Look::icon, Look::icon});
    tool->setAutoRaise(true);
    tool->setFocusPolicy(Qt::TabFocus);
    tool->setAccessibleName(text);
    tool->setToolTip(text);
    layout->addWidget(tool);
    connect(tool, &QToolButton::clicked, this, work);
    _tools.append(tool);
}

QString EffectsList::chosen() const
{
    QListWidgetItem const* const item = _list->currentItem();
    return item ? item->data(Qt::UserRole).toString() : QString();
}

void EffectsList::choose(QString const& name)
{
    for (int row = 0; row < _list->count(); ++row)
        if (_list->item(row)->data(Qt::UserRole).toString() == name)
            _list->setCurrentRow(row);
}

void EffectsList::fill()
{
    QString const before = chosen();
    {
        QScopedValueRollback const filling(_isFilling, true);
        QList<Effect> const& effects = _library.effects();
        while (_list->count() > effects.size())
            delete _list->takeItem(_list->count() - 1);
        for (int row = 0; row < effects.size(); ++row) {
            if (row == _list->count())
                _list->addItem(new QListWidgetItem);
            showItem(_list->item(row), effects.at(row));
        }
        choose(before);
    }
    onChosen();
}

void EffectsList::showItem(QListWidgetItem* item, Effect const& effect)
{
    item->setData(Qt::UserRole, effect.name);
    item->setText(EffectNames::shown(effect));
    item->setToolTip(plainToolTip(effect.fault));
    item->setIcon(effect.fault.isEmpty() ? effect.isTemplate ? Icons::icon(Icon::Lock) : Icons::icon(Icon::Edit)
                                         : Icons::icon(Icon::Warning));
    item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
    item->setCheckState(effect.isOn ? Qt::Checked : Qt::Unchecked);
}

void EffectsList::onChosen()
{
    if (_isFilling)
        return;
    refreshTools();
    emit changed();
}

void EffectsList::refreshTools()
{
    Effect const* const effect = _library.find(chosen());
    bool const isOwn = effect && !effect->isTemplate;
    int const row = _list->currentRow();
    bool const enabled[] = {true, effect != nullptr, isOwn, isOwn, row > 0, row >= 0 && row + 1 < _list->count()};
    for (int i = 0; i < _tools.size(); ++i)
        _tools.at(i)->setEnabled(enabled[i]);
}

void EffectsList::onItemChanged(QListWidgetItem* item)
{
    if (_isFilling)
        return;
    bool const isOn = item->checkState() == Qt::Checked;
    _library.setOn(item->data(Qt::UserRole).toString(), isOn);
    if (isOn)
        emit switchedOn();
}

void EffectsList::onReordered()
{
    if (_isFilling)
        return;
    QStringList names;
    for (int row = 0; row < _list->count(); ++row)
        names.append(_list->item(row)->data(Qt::UserRole).toString());
    if (names.size() == _library.effects().size())
        _library.setOrder(names);
}

void EffectsList::step(int by)
{
    _library.move(_list->currentRow(), _list->currentRow() + by);
}
