#include "ChannelListWidget.h"

#include "AppData.h"
#include "ChannelListFilters.h"
#include "ChannelListWidgetItemDelegate.h"
#include "ChannelRowPainter.h"
#include "ChannelView.h"
#include "DeleteChannelDialog.h"
#include "Look.h"
#include "PanelNotice.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

ChannelListWidget::ChannelListWidget(AppData& appData, QWidget* parent)
    : QWidget(parent), _appData(appData), _model(new ChannelListWidgetModel(this)),
      _shown(new ChannelListWidgetProxyModel(this)), _filters(new ChannelListFilters(_shown, this))
{
    setObjectName("channelList");
    setAccessibleName(tr("Channels"));
    _model->setPrepare([this](ChannelListWidgetModelRow& row) { prepare(row); });
    _shown->setChannelModel(_model);
    createView();
    connectView();
    arrange();
    connect(&_states, &ChannelRowStates::changed, this, &ChannelListWidget::showState);
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
    connect(_view, &ChannelView::typed, _filters, &ChannelListFilters::type);
    connect(_filters, &ChannelListFilters::changed, this, &ChannelListWidget::showWhatThereIs);
    connect(_filters, &ChannelListFilters::refreshClicked, this, &ChannelListWidget::refreshButtonClicked);
    connect(_filters, &ChannelListFilters::listWanted, this, [this] { _view->setFocus(Qt::TabFocusReason); });
    connect(_filters, &ChannelListFilters::channelWanted, this, &ChannelListWidget::onChannelWanted);
    connect(_view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](QModelIndex const&, QModelIndex const& before) {
                if (before.isValid())
                    tell({});
            });
}

void ChannelListWidget::arrange()
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(_filters);
    layout->addWidget(_pages, 1);
    layout->addWidget(_message);
    QWidgetList const inOrder = _filters->inOrder() + QWidgetList{_view};
    for (qsizetype i = 1; i < inOrder.size(); ++i)
        setTabOrder(inOrder.at(i - 1), inOrder.at(i));
    setFocusProxy(_filters);
    setColumnSizes();
}

/// The column of the state is as wide as the longest of them, in whatever language; the name has the rest.
void ChannelListWidget::setColumnSizes()
{
    int width = ChannelRowPainter::widestState(_view->font());
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
    _filters->enable(hasRows, _content != Content::SignedOut);
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
        _filters->clear();
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
    changed.setLogo(description.packedLogo());
    updateChannel(row, changed);
}

void ChannelListWidget::showState(QString const& rootId)
{
    _model->setState(_model->findRow(rootId), _states.of(rootId));
}

void ChannelListWidget::onChannelChanged(ChannelDescription const& description)
{
    _areStreamsChanged = _areStreamsChanged && _states.active() == description.rootId();
    _states.setActive(description.rootId());
}
