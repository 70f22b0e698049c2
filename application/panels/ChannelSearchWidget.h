#pragma once

#include "ChannelDescription.h"
#include "ChannelRowState.h"
#include "SoapUserChannels.h"
#include "Uri.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

#include <memory>

class ChannelLogoLoader;
class ChannelSearchCombo;
class ChannelSearchWidgetModel;
class ChannelSearchWidgetProxyModel;
class ChannelView;
class MyChannels;
class PanelNotice;
class QLabel;
class QMenu;
class QPushButton;
class QStackedWidget;
class WebCache;
struct SoapService;

/// Searches the channels that viewers have made, shows what was found, to be watched and saved to the viewer's list.
/// A search that begins ends the one before: its answer never comes. Main thread only.
class ChannelSearchWidget : public QWidget
{
    Q_OBJECT

public:
    /// The cache, which logos come from, is borrowed; it may be null. The address is that of the site's own search.
    ChannelSearchWidget(WebCache* cache, QString const& webSearchAddress, QWidget* parent = nullptr);
    ~ChannelSearchWidget() override;

    /// What channels are saved by; borrowed.
    void setMyChannels(MyChannels* myChannels);
    /// From now on the service is searched for who is known by the node id.
    void signIn(SoapService const& service, QString const& nodeId);
    void signOut();

    /// Has such a channel made, by the fields of its form.
    void create(SoapUserChannels::Form const& form);

    /// How channels play: to be told of it.
    ChannelRowStates& states() { return _states; }

    /// The channel of a row of the model, to look at it.
    ChannelDescription buildChannelFromRow(int row) const;
    /// Whether a channel is on the viewer's list.
    bool isChannelAdded(QString const& id) const { return _added.contains(id); }

    ChannelSearchWidgetModel const& model() const { return *_model; }
    QString status() const;

signals:
    void openChannel(ChannelDescription description, bool nonMultiview);
    void closeChannel(ChannelDescription description);
    void webSearchClicked();
    /// A click, which does what clicks on a channel do.
    void channelClicked(ChannelDescription description, bool isModifierHeld);
    void signInClicked();
    /// The viewer wants to add a channel that nobody has added yet.
    void createRequested();

public slots:
    void onSearch();
    void onSearchTop();
    /// Saves the channel that is current.
    void onAddChannel();
    void onGetUserChannelsCompleted(int total, QList<SoapUserChannel> const& channels);
    void onGetTopUserChannelsCompleted(int total, QList<SoapUserChannel> const& channels);
    void onAddUserChannelCompleted(SoapUserChannel const& channel);
    void onRemoveUserChannelCompleted(bool done);
    void onSoapRequestFailed(QString const& method, QString const& message);

    /// The null description where no channel is active.
    void onChannelChanged(ChannelDescription const& description) { _states.setActive(description.rootId()); }
    void onChannelOpened(ChannelDescription const& description) { _states.open(description.rootId()); }
    void onChannelClosed(ChannelDescription const& description) { _states.close(description.rootId()); }
    void onChannelsUpdated(QList<ChannelDescription> const& descriptions);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void createControls();
    void createView();
    void arrange();
    void setColumnSizes();
    void setUrlStyle();
    void begin(QString const& query, QString const& status);
    void onMore();
    void take(int total, QList<SoapUserChannel> const& channels, QString const& status);
    void tell(QString const& text);
    void showWhatThereIs(QString const& text = {});
    void onCellClicked(QModelIndex const& index, bool isModifierHeld);
    void showMenu(QModelIndex const& index, QPoint const& point);
    /// For the row of an index of the view.
    void open(QModelIndex const& index, bool nonMultiview);
    int rowAt(QModelIndex const& index) const;
    void save(QString const& id);
    void showState(QString const& rootId);
    void showStates();
    void wantLogos();
    void onLogoLoaded(Uri const& logo, ChannelLogo const& image);

    QString const _webSearchAddress;
    ChannelSearchWidgetModel* const _model;
    ChannelSearchWidgetProxyModel* const _shown;
    ChannelLogoLoader* const _logos;
    QPointer<MyChannels> _myChannels;
    std::unique_ptr<SoapUserChannels> _search; ///< Null while nobody is signed in.
    QString _nodeId;
    QString _query;           ///< Of the last search; null for the most popular.
    int _page = 0;            ///< That was asked for last.
    bool _isTopFirst = false; ///< The first row is to be seen when an answer comes.
    ChannelRowStates _states;
    QSet<QString> _added; ///< Root ids.

    ChannelSearchCombo* _combo = nullptr;
    QPushButton* _searchButton = nullptr;
    QPushButton* _topButton = nullptr;
    QPushButton* _moreButton = nullptr;
    QPushButton* _createButton = nullptr;
    QLabel* _status = nullptr;
    QLabel* _link = nullptr;
    QStackedWidget* _pages = nullptr;
    ChannelView* _view = nullptr;
    PanelNotice* _notice = nullptr;
    QPointer<QMenu> _menu;
};
