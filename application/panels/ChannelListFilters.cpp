#include "ChannelListFilters.h"

#include "ChannelListWidgetProxyModel.h"
#include "Icons.h"
#include "Look.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

ChannelListFilters::ChannelListFilters(ChannelListWidgetProxyModel* shown, QWidget* parent)
    : QWidget(parent), _shown(shown)
{
    createFilter();
    createKinds();
    _favouritesOnly = addButton("favouritesOnly", tr("Show favourites only"));
    _favouritesOnly->setIcon(Icons::icon(Icon::Favourite));
    _favouritesOnly->setCheckable(true);
    connect(_favouritesOnly, &QToolButton::toggled, this, [this](bool on) {
        _shown->setFavouritesOnly(on);
        emit changed();
    });
    _refresh = addButton("refresh", tr("Refresh the list"));
    _refresh->setIcon(Icons::icon(Icon::Refresh));
    connect(_refresh, &QToolButton::clicked, this, &ChannelListFilters::refreshClicked);
    arrange();
}

void ChannelListFilters::createFilter()
{
    constexpr int longestFilter = 200;
    _filter = new QLineEdit(this);
    _filter->setObjectName("filter");
    _filter->setPlaceholderText(tr("Filter by title or language"));
    _filter->setAccessibleName(_filter->placeholderText());
    _filter->setMaxLength(longestFilter);
    _filter->setClearButtonEnabled(true);
    _filter->addAction(Icons::icon(Icon::Search), QLineEdit::LeadingPosition);
    _filter->installEventFilter(this);
    connect(_filter, &QLineEdit::textChanged, this, [this](QString const& text) {
        _shown->setFilterText(text);
        emit changed();
    });
}

void ChannelListFilters::createKinds()
{
    _kinds = new QComboBox(this);
    _kinds->setObjectName("kinds");
    _kinds->setAccessibleName(tr("Kind of channels"));
    _kinds->setAccessibleDescription(_kinds->accessibleName()); // A box without a label is called after its choice.
    _kinds->addItems({tr("Any"), tr("Premium Partner"), tr("Free Partner"), tr("Viewer Added")});
    _kinds->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(_kinds, &QComboBox::currentIndexChanged, this, [this](int index) {
        _shown->setKind(static_cast<ChannelListWidgetProxyModel::Kind>(index));
        emit changed();
    });
}

QToolButton* ChannelListFilters::addButton(char const* name, QString const& text)
{
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setIconSize({Look::icon, Look::icon});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(text);
    button->setAccessibleName(text);
    return button;
}

void ChannelListFilters::arrange()
{
    auto* const line = new QHBoxLayout;
    line->setSpacing(Look::halfGrid);
    line->addWidget(_kinds, 1);
    line->addWidget(_favouritesOnly);
    line->addWidget(_refresh);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Look::grid, Look::grid, Look::grid, Look::grid);
    layout->setSpacing(Look::grid);
    layout->addWidget(_filter);
    layout->addLayout(line);
    setFocusProxy(_filter);
}

QWidgetList ChannelListFilters::inOrder() const
{
    return {_filter, _kinds, _favouritesOnly, _refresh};
}

void ChannelListFilters::enable(bool filters, bool refresh)
{
    for (QWidget* const widget : inOrder())
        widget->setEnabled(widget == _refresh ? refresh : filters);
}

void ChannelListFilters::clear()
{
    _filter->clear();
    _kinds->setCurrentIndex(0);
    _favouritesOnly->setChecked(false);
}

void ChannelListFilters::type(QString const& text)
{
    _filter->setFocus();
    _filter->setText(_filter->text() + text);
}

bool ChannelListFilters::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != _filter || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto const* const key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Down:
        emit listWanted();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!key->isAutoRepeat())
            emit channelWanted(key->modifiers().testFlag(Qt::ControlModifier));
        return true;
    case Qt::Key_Escape:
        if (_filter->text().isEmpty())
            return false;
        _filter->clear();
        return true;
    default:
        return false;
    }
}
