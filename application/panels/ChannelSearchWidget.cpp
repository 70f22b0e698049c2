#include "ChannelSearchWidget.h"

#include "ChannelLogoLoader.h"
#include "ChannelRowPainter.h"
#include "ChannelSearchCombo.h"
#include "ChannelSearchWidgetItemDelegate.h"
#include "ChannelSearchWidgetModel.h"
#include "ChannelSearchWidgetProxyModel.h"
#include "ChannelView.h"
#include "LinkLabel.h"
#include "Look.h"
#include "MyChannels.h"
#include "PanelNotice.h"
#include "PlainToolTip.h"
#include "SoapService.h"

#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

ChannelSearchWidget::ChannelSearchWidget(WebCache* cache, QString const& webSearchAddress, QWidget* parent)
    : QWidget(parent), _webSearchAddress(webSearchAddress), _model(new ChannelSearchWidgetModel(this)),
      _shown(new ChannelSearchWidgetProxyModel(this)), _logos(new ChannelLogoLoader(cache, this))
{
    setObjectName("channelSearch");
    setAccessibleName(tr("Search"));
    _shown->setSourceModel(_model);
    createControls();
    createView();
    arrange();
    setUrlStyle();
    connect(_logos, &ChannelLogoLoader::loaded, this, &ChannelSearchWidget::onLogoLoaded);
    connect(&_states, &ChannelRowStates::changed, this, &ChannelSearchWidget::showState);
    signOut();
}

/// The parts are destroyed after this, and tell of it what they have to tell.
ChannelSearchWidget::~ChannelSearchWidget()
{
    for (QObject* const part : findChildren<QObject*>())
        part->disconnect(this);
}

void ChannelSearchWidget::createControls()
{
    _combo = new ChannelSearchCombo(this);
    _combo->setObjectName("query");
    connect(_combo, &ChannelSearchCombo::searchRequested, this, &ChannelSearchWidget::onSearch);
    _searchButton = new QPushButton(tr("Search"), this);
    _searchButton->setObjectName("search");
    connect(_searchButton, &QPushButton::clicked, this, &ChannelSearchWidget::onSearch);
    _topButton = new QPushButton(tr("Most Added"), this);
    _topButton->setObjectName("mostAdded");
    connect(_topButton, &QPushButton::clicked, this, &ChannelSearchWidget::onSearchTop);
    _moreButton = new QPushButton(tr("Show More"), this);
    _moreButton->setObjectName("more");
    _moreButton->hide();
    connect(_moreButton, &QPushButton::clicked, this, &ChannelSearchWidget::onMore);
    _createButton = new QPushButton(tr("New Channel..."), this);
    _createButton->setObjectName("create");
    connect(_createButton, &QPushButton::clicked, this, &ChannelSearchWidget::createRequested);
    _status = new QLabel(this);
    _status->setObjectName("status");
    _status->setTextFormat(Qt::PlainText);
    _status->setWordWrap(true);
    _status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    _link = new LinkLabel(this);
    _link->setObjectName("webSearch");
    _link->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    _link->setToolTip(plainToolTip(_webSearchAddress));
    connect(_link, &QLabel::linkActivated, this, &ChannelSearchWidget::webSearchClicked);
}

void ChannelSearchWidget::createView()
{
    _view = new ChannelView(this);
    _view->setObjectName("results");
    _view->setAccessibleName(tr("Channels that were found"));
    _view->setModel(_shown);
    auto* const delegate = new ChannelSearchWidgetItemDelegate(_view);
    _view->setItemDelegate(delegate);
    connect(_view, &ChannelView::stateColumnChanged, this,
            [delegate](bool isShown) { delegate->setStateWithChannel(!isShown); });
    _view->header()->setSortIndicator(-1, Qt::AscendingOrder); // The service's.
    _view->setSortingEnabled(true);
    connect(_view, &ChannelView::cellClicked, this,
            [this](QModelIndex const& index, QPoint const&, bool isModifierHeld) {
                onCellClicked(index, isModifierHeld);
            });
    connect(_view, &ChannelView::playRequested, this, [this](QModelIndex const& index) { open(index, true); });
    connect(_view, &ChannelView::previewRequested, this, [this](QModelIndex const& index) { open(index, true); });
    connect(_view, &ChannelView::addRequested, this, [this](QModelIndex const& index) { open(index, false); });
    connect(_view, &ChannelView::menuRequested, this, &ChannelSearchWidget::showMenu);
    connect(_view, &ChannelView::typed, this, [this](QString const& text) {
        _combo->setFocus();
        _combo->setEditText(text);
    });
    connect(_view->verticalScrollBar(), &QScrollBar::valueChanged, this, &ChannelSearchWidget::wantLogos);
    connect(_shown, &QAbstractItemModel::layoutChanged, this, &ChannelSearchWidget::wantLogos);
    _notice = new PanelNotice(this);
    connect(_notice, &PanelNotice::buttonClicked, this, &ChannelSearchWidget::signInClicked);
    _pages = new QStackedWidget(this);
    _pages->addWidget(_view);
    _pages->addWidget(_notice);
}

void ChannelSearchWidget::arrange()
{
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(Look::grid);
    buttons->addWidget(_searchButton, 1);
    buttons->addWidget(_topButton, 1);
    auto* const top = new QVBoxLayout;
    top->setContentsMargins(Look::grid, Look::grid, Look::grid, Look::grid);
    top->setSpacing(Look::grid);
    top->addWidget(_combo);
    top->addLayout(buttons);
    top->addWidget(_status);
    auto* const bottom = new QVBoxLayout;
    bottom->setContentsMargins(Look::grid, Look::grid, Look::grid, Look::grid);
    bottom->setSpacing(Look::grid);
    bottom->addWidget(_moreButton, 0, Qt::AlignHCenter);
    auto* const ends = new QHBoxLayout;
    ends->setSpacing(Look::grid);
    ends->addWidget(_link, 1);
    ends->addWidget(_createButton);
    bottom->addLayout(ends);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(_pages, 1);
    layout->addLayout(bottom);
    QWidget* const inOrder[] = {_combo, _searchButton, _topButton, _view, _moreButton, _link, _createButton};
    for (size_t i = 1; i < std::size(inOrder); ++i)
        setTabOrder(inOrder[i - 1], inOrder[i]);
    setFocusProxy(_combo);
    setColumnSizes();
}

void ChannelSearchWidget::setColumnSizes()
{
    int const width = ChannelRowPainter::widestState(_view->font());
    QHeaderView const* const header = _view->header();
    _view->arrangeColumns(std::max(width, header->sectionSizeHint(ChannelSearchWidgetModel::StatusColumn)),
                          header->sectionSizeHint(ChannelSearchWidgetModel::RatingColumn));
}

void ChannelSearchWidget::setUrlStyle()
{
    QString const text = tr("Search on the web site");
    _link->setText(QStringLiteral("<a href=\"search\" style=\"color:%1\">%2</a>")
                       .arg(palette().color(QPalette::Link).name(), text.toHtmlEscaped()));
    _link->setAccessibleName(text);
}

void ChannelSearchWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (!_view || !_link)
        return;
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        setUrlStyle();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        setColumnSizes();
}

void ChannelSearchWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    wantLogos();
}

void ChannelSearchWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    wantLogos();
}

QString ChannelSearchWidget::status() const
{
    return _status->text();
}

void ChannelSearchWidget::tell(QString const& text)
{
    constexpr qsizetype longest = 1000;
    _status->setText(ChannelDescription::toLine(text.left(longest)));
    _status->setAccessibleName(_status->text());
}

/// In place of the results, where there are none.
void ChannelSearchWidget::showWhatThereIs(QString const& text)
{
    bool const isSignedIn = _search != nullptr;
    for (QWidget* const widget : {static_cast<QWidget*>(_combo), static_cast<QWidget*>(_searchButton),
                                  static_cast<QWidget*>(_topButton), static_cast<QWidget*>(_createButton)})
        widget->setEnabled(isSignedIn);
    _status->setVisible(isSignedIn);
    if (_model->rowCount() > 0) {
        _pages->setCurrentWidget(_view);
        return;
    }
    if (!isSignedIn)
        _notice->tell(Icon::User, tr("Sign in to search for channels."), tr("Sign In"));
    else if (_search->isWaitingForResponse())
        _notice->tellProgress(_status->text());
    else
        _notice->tell(Icon::Search, text.isEmpty() ? tr("Find the channels that other viewers have added.") : text);
    _pages->setCurrentWidget(_notice);
}

void ChannelSearchWidget::showState(QString const& rootId)
{
    _model->setState(_model->findChannelRowByRootId(rootId), _states.of(rootId));
}

void ChannelSearchWidget::showStates()
{
    for (int row = 0; row < _model->rowCount(); ++row) {
        QString const rootId = _model->row(row).description.rootId();
        _model->setState(row, _states.of(rootId));
        _model->setAdded(row, isChannelAdded(rootId));
        if (isChannelAdded(rootId))
            _logos->leave(_model->row(row).logoUri);
    }
}

void ChannelSearchWidget::onChannelsUpdated(QList<ChannelDescription> const& descriptions)
{
    _added.clear();
    for (ChannelDescription const& description : descriptions)
        if (description.channelType() == ChannelDescription::UserChannel && description.isViewerAdded())
            _added.insert(description.rootId());
    showStates();
}

void ChannelSearchWidget::wantLogos()
{
    if (!isVisible())
        return;
    QModelIndex index = _view->indexAt({_view->viewport()->width() / 2, 0});
    while (index.isValid() && _view->visualRect(index).top() < _view->viewport()->height()) {
        ChannelSearchWidgetModelRow const& row = _model->row(rowAt(index));
        if (!row.description.logoLoaded())
            _logos->want(row.logoUri);
        index = _view->indexBelow(index);
    }
}

void ChannelSearchWidget::onLogoLoaded(Uri const& logo, ChannelLogo const& image)
{
    for (int row = _model->findChannelRowByLogoUri(logo); row >= 0;
         row = _model->findChannelRowByLogoUri(logo, row + 1))
        _model->setLogo(row, image);
}
