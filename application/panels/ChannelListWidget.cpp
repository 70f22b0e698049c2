#include "ChannelListWidget.h"

#include "AppData.h"
#include "ChannelListWidgetItemDelegate.h"
#include "ChannelRowPainter.h"
#include "ChannelView.h"
#include "DeleteChannelDialog.h"
#include "Look.h"
#include "PanelNotice.h"

#include <QComboBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>
#include <utility>

ChannelListWidget::ChannelListWidget(AppData& appData, QWidget* parent)
    : QWidget(parent), _appData(appData), _model(new ChannelListWidgetModel(this)),
      _shown(new ChannelListWidgetProxyModel(this))
{
    setObjectName("channelList");
    setAccessibleName(tr("Channels"));
    _model->setPrepare([this](ChannelListWidgetModelRow& row) { prepare(row); });
    _shown->setChannelModel(_model);
    createFilters();
    createView();
    connectView();
    arrange();
    readSettings();
    connect(&_appData.settings, &AppSettings::channelAlertsChanged, this, &ChannelListWidget::readSettings);
    connect(&_appData.settings, &AppSettings::favouriteChannelsChanged, this, &ChannelListWidget::readSettings);
    showWhatThereIs();
}

/// The parts are destroyed after this, and tell of it what they have to tell.
ChannelListWidget::~ChannelListWidget()
{
    for (QObject* const part : findChildren<QObject*>())
        part->disconnect(this);
}

void ChannelListWidget::createFilters()
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
        showWhatThereIs();
    });
    _kinds = new QComboBox(this);
    _kinds->setObjectName("kinds");
    _kinds->setAccessibleName(tr("Kind of channels"));
    _kinds->setAccessibleDescription(_kinds->accessibleName()); // A box without a label is called after its choice.
    _kinds->addItems({tr("Any"), tr("Premium Partner"), tr("Free Partner"), tr("Viewer Added")});
    _kinds->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(_kinds, &QComboBox::currentIndexChanged, this, [this](int index) {
        _shown->setKind(static_cast<ChannelListWidgetProxyModel::Kind>(index));
        showWhatThereIs();
    });
    auto const button = [this](char const* name, Icon icon, QString const& text) {
        auto* const made = new QToolButton(this);
        made->setObjectName(name);
        made->setIcon(Icons::icon(icon));
        made->setIconSize({Look::icon, Look::icon});
        made->setAutoRaise(true);
        made->setFocusPolicy(Qt::TabFocus);
        made->setToolTip(text);
        made->setAccessibleName(text);
        return made;
    };
    _favouritesOnly = button("favouritesOnly", Icon::Favourite, tr("Show favourites only"));
    _favouritesOnly->setCheckable(true);
    connect(_favouritesOnly, &QToolButton::toggled, this, [this](bool on) {
        _shown->setFavouritesOnly(on);
        showWhatThereIs();
    });
    _refresh = button("refresh", Icon::Refresh, tr("Refresh the list"));
    connect(_refresh, &QToolButton::clicked, this, &ChannelListWidget::refreshButtonClicked);
}

void ChannelListWidget::createView()
{
    _view = new ChannelView(this);
    _view->setObjectName("channels");
    _view->setAccessibleName(tr("Channels"));
    _view->setModel(_shown);
    auto* const delegate = new ChannelListWidgetItemDelegate(_view);
    _view->setItemDelegate(delegate);
    connect(_view, &ChannelView::stateColumnChanged, this,
            [delegate](bool isShown) { delegate->setStateWithChannel(!isShown); });
    _view->header()->setSortIndicator(ChannelListWidgetModel::NameColumn, Qt::AscendingOrder);
    _view->setSortingEnabled(true);
    _notice = new PanelNotice(this);
    connect(_notice, &PanelNotice::buttonClicked, this, &ChannelListWidget::onNoticeButton);
    _pages = new QStackedWidget(this);
    _pages->addWidget(_view);
    _pages->addWidget(_notice);
    _message = new QLabel(this);
    _message->setObjectName("message");
    _message->setTextFormat(Qt::PlainText);
    _message->setWordWrap(true);
    _message->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    _message->setContentsMargins(Look::grid, Look::grid, Look::grid, Look::grid);
    _message->hide();
}

void ChannelListWidget::connectView()
{
    connect(_view, &ChannelView::cellClicked, this, &ChannelListWidget::onCellClicked);
    auto const on = [this](void (ChannelView::*signal)(QModelIndex), void (ChannelListWidget::*slot)()) {
        connect(_view, signal, this, [this, slot](QModelIndex const& index) { act(index, slot); });
    };
    on(&ChannelView::playRequested, &ChannelListWidget::onWatchChannel);
    on(&ChannelView::addRequested, &ChannelListWidget::onOpenChannel);
    on(&ChannelView::deleteRequested, &ChannelListWidget::onDeleteChannel);
    on(&ChannelView::previewRequested, &ChannelListWidget::onPreviewChannel);
    connect(_view, &ChannelView::favouriteRequested, this, [this](QModelIndex const& index) {
        if (auto const* const row = rowAt(index))
            toggleFavourite(row->rootId);
    });
    connect(_view, &ChannelView::menuRequested, this, &ChannelListWidget::showMenu);
    connect(_view, &ChannelView::typed, this, [this](QString const& text) {
        _filter->setFocus();
        _filter->setText(_filter->text() + text);
    });
    connect(_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](QModelIndex const&, QModelIndex const& before) {
                if (before.isValid())
                    tell({});
            });
}

void ChannelListWidget::arrange()
{
    auto* const filters = new QHBoxLayout;
    filters->setSpacing(Look::halfGrid);
    filters->addWidget(_kinds, 1);
    filters->addWidget(_favouritesOnly);
    filters->addWidget(_refresh);
    auto* const top = new QVBoxLayout;
    top->setContentsMargins(Look::grid, Look::grid, Look::grid, Look::grid);
    top->setSpacing(Look::grid);
    top->addWidget(_filter);
    top->addLayout(filters);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(_pages, 1);
    layout->addWidget(_message);
    QWidget* const inOrder[] = {_filter, _kinds, _favouritesOnly, _refresh, _view};
    for (size_t i = 1; i < std::size(inOrder); ++i)
        setTabOrder(inOrder[i - 1], inOrder[i]);
    setFocusProxy(_filter);
    setColumnSizes();
}

/// The column of the state is as wide as the longest of them, in whatever language; the name has the rest.
void ChannelListWidget::setColumnSizes()
{
    int width = 0;
    for (ChannelRowState const state : {ChannelRowState::Playing, ChannelRowState::Previewing, ChannelRowState::Open,
                                        ChannelRowState::Acquiring, ChannelRowState::Failed})
        width = std::max(width, ChannelRowPainter::stateWidth(_view->font(), ChannelRowStates::text(state)));
    width = std::max(width, _view->header()->sectionSizeHint(ChannelListWidgetModel::StatusColumn));
    _view->arrangeColumns(width, Look::smallIcon + 3 * Look::grid);
}

void ChannelListWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (_view && (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        setColumnSizes();
}

void ChannelListWidget::readSettings()
{
    QStringList const favourites = _appData.settings.favouriteChannels();
    _favourites = QSet<QString>(favourites.cbegin(), favourites.cend());
    ChannelView::Place const place = _view->place();
    _model->prepareAgain();
    _view->restore(place);
    showWhatThereIs();
}

void ChannelListWidget::prepare(ChannelListWidgetModelRow& row)
{
    AppSettings& settings = _appData.settings;
    row.isFavourite = _favourites.contains(row.rootId);
    row.hasAlertsOn =
        row.description.hasAlerts() && settings.channelAlerts(row.rootId, settings.showBreakingNewsAlerts());
    row.state = _states.of(row.rootId);
}

void ChannelListWidget::setContent(Content content, QString const& text)
{
    bool const isNews = content != _content || text != _contentText;
    _content = content;
    _contentText = text;
    if (isNews && content == Content::Failed && _model->rowCount() > 0)
        tell(text);
    showWhatThereIs();
}

void ChannelListWidget::showWhatThereIs()
{
    bool const hasRows = _model->rowCount() > 0;
    for (QWidget* const widget :
         {static_cast<QWidget*>(_filter), static_cast<QWidget*>(_kinds), static_cast<QWidget*>(_favouritesOnly)})
        widget->setEnabled(hasRows);
    _refresh->setEnabled(_content != Content::SignedOut);
    if (_shown->rowCount() > 0) {
        _pages->setCurrentWidget(_view);
        return;
    }
    if (hasRows)
        _notice->tell(Icon::Search, tr("No channel fits your filters."), tr("Show All Channels"));
    else if (_content == Content::SignedOut)
        _notice->tell(Icon::User, tr("Sign in to see your channels."), tr("Sign In"));
    else if (_content == Content::Loading)
        _notice->tellProgress(_contentText.isEmpty() ? tr("Loading channels...") : _contentText, tr("Refresh"));
    else if (_content == Content::Failed)
        _notice->tell(Icon::Warning, _contentText, tr("Refresh"));
    else
        _notice->tell(Icon::Television, tr("There are no channels on your list."), tr("Refresh"));
    _pages->setCurrentWidget(_notice);
}

void ChannelListWidget::onNoticeButton()
{
    if (_model->rowCount() > 0) {
        _filter->clear();
        _kinds->setCurrentIndex(0);
        _favouritesOnly->setChecked(false);
    } else if (_content == Content::SignedOut) {
        emit signInClicked();
    } else {
        emit refreshButtonClicked();
    }
}

void ChannelListWidget::tell(QString const& text)
{
    constexpr qsizetype longest = 500;
    _message->setText(text.left(longest));
    _message->setAccessibleName(_message->text());
    _message->setVisible(!text.isEmpty());
}

void ChannelListWidget::onChannelsUpdated(QList<ChannelDescription> const& descriptions)
{
    ChannelView::Place const place = _view->place();
    _model->setChannels(descriptions);
    _view->restore(place);
    showWhatThereIs();
    if (_menu && _model->findRow(_menuId) < 0)
        _menu->close();
    if (_deleteDialog && _model->findRow(_deleteId) < 0) {
        _deleteDialog->reject();
        tell(tr("The channel has gone from the list."));
    }
}

void ChannelListWidget::updateChannel(int row, ChannelDescription const& description)
{
    _model->updateChannel(row, description);
}

void ChannelListWidget::updateChannel(ChannelDescription const& description)
{
    updateChannel(_model->findRow(description), description);
}

void ChannelListWidget::onChannelLogoUpdated(ChannelDescription const& description)
{
    int const row = _model->findRow(description);
    if (row < 0)
        return;
    ChannelDescription changed = _model->row(row).description;
    changed.setLogo(description.logo());
    updateChannel(row, changed);
}

void ChannelListWidget::showState(QString const& rootId)
{
    _model->setState(_model->findRow(rootId), _states.of(rootId));
}

void ChannelListWidget::onChannelOpened(ChannelDescription const& description)
{
    _states.open(description.rootId());
    showState(description.rootId());
}

void ChannelListWidget::onChannelClosed(ChannelDescription const& description)
{
    _states.close(description.rootId());
    showState(description.rootId());
}

void ChannelListWidget::onChannelChanged(ChannelDescription const& description)
{
    QString const before = _states.active();
    _states.setActive(description.rootId());
    _areStreamsChanged = _areStreamsChanged && before == description.rootId();
    showState(before);
    showState(description.rootId());
}

void ChannelListWidget::setChannelState(QString const& rootId, ChannelRowState state)
{
    if (state == ChannelRowState::Acquiring)
        _states.setAcquiring(rootId);
    else if (state == ChannelRowState::Failed)
        _states.setFailed(rootId);
    else
        _states.setPlaying(rootId);
    showState(rootId);
}

void ChannelListWidget::setPreview(QString const& rootId)
{
    _states.setPreview(rootId);
    showState(_states.active());
    showState(rootId);
}
