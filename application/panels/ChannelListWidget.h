#pragma once

#include "ChannelDescription.h"
#include "ChannelListWidgetModel.h"
#include "ChannelListWidgetProxyModel.h"
#include "ChannelRowState.h"

#include <QPointer>
#include <QSet>
#include <QWidget>

class AppData;
class ChannelListFilters;
class ChannelView;
class DeleteChannelDialog;
class PanelNotice;
class QLabel;
class QMenu;
class QStackedWidget;

/// The viewer's channels, with how they play, filters above them and a menu for each. It only asks, by signals: what
/// becomes of that it is told. What stands in the settings, alerts and favourites, it changes itself.
///
/// Channels are told apart by root id. One may vanish at any moment, also while its menu or dialog is open: nothing
/// follows then. Main thread only.
class ChannelListWidget : public QWidget
{
    Q_OBJECT

public:
    /// What there is to show when there is no channel.
    enum class Content { SignedOut, Loading, Failed, Ready };

    explicit ChannelListWidget(AppData& appData, QWidget* parent = nullptr);
    ~ChannelListWidget() override;

    /// With words, of what goes on or went wrong. A list that is there goes on, and what is wrong stands below it.
    void setContent(Content content, QString const& text = {});
    /// For the viewer, below the list, until the viewer does something else; empty to take it back.
    void tell(QString const& text);

    /// Rewrites a row of the model from a description.
    void updateChannel(int row, ChannelDescription const& description);
    void updateChannel(ChannelDescription const& description);
    /// How channels play: to be told of it.
    ChannelRowStates& states() { return _states; }

    ChannelListWidgetModel const& model() const { return *_model; }
    ChannelListWidgetProxyModel const& shownModel() const { return *_shown; }
    ChannelView* view() const { return _view; }

signals:
    void openChannel(ChannelDescription description, bool nonMultiview);
    void closeChannel(ChannelDescription description);
    void purchaseChannel(ChannelDescription description);
    /// The viewer wants the page of the site on which channels are added and restored.
    void manageChannels();
    void refreshButtonClicked();
    /// To, or from, the channel that has the sound.
    void addStream(StreamDescription description);
    void removeStream(StreamDescription description);
    void resetStreams();
    void showChannelBreakingNewsAlerts(QString rootId, bool show);
    /// A click, which does what clicks on a channel do.
    void channelClicked(ChannelDescription description, bool isModifierHeld);
    /// For a look, or, if that is how it plays, the way back.
    void previewChannel(ChannelDescription description);
    /// The viewer has confirmed it.
    void deleteChannel(ChannelDescription description);
    void signInClicked();

public slots:
    // What the menu and the keys ask for, of the channel that is current.
    void onWatchChannel();
    void onOpenChannel();
    void onCloseChannel();
    void onDeleteChannel();
    void onPreviewChannel();
    void onPurchaseChannel();

    // What has happened.
    /// The null description where no channel is active.
    void onChannelChanged(ChannelDescription const& description);
    void onChannelOpened(ChannelDescription const& description) { _states.open(description.rootId()); }
    void onChannelClosed(ChannelDescription const& description) { _states.close(description.rootId()); }
    /// It is to come with the next list.
    void expectChannel(ChannelDescription const& description) { _model->expect(description); }
    void onChannelsUpdated(QList<ChannelDescription> const& descriptions);
    void onChannelLogoUpdated(ChannelDescription const& description);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createView();
    void connectView();
    void arrange();
    void setColumnSizes();
    void readSettings();
    void prepare(ChannelListWidgetModelRow& row);
    void showWhatThereIs();
    void onNoticeButton();
    void onChannelWanted(bool isBeside);
    void onCellClicked(QModelIndex const& index, QPoint const& point, bool isModifierHeld);
    void toggleAlerts(QString const& rootId);
    void toggleFavourite(QString const& rootId);
    void onDeletionConfirmed(QString const& rootId);
    /// Does something for the channel of an index of the view.
    void act(QModelIndex const& index, void (ChannelListWidget::*slot)());
    void showMenu(QModelIndex const& index, QPoint const& point);
    void fillMenu(QMenu& menu, ChannelListWidgetModelRow const& row);
    void addPlayEntries(QMenu& menu, ChannelListWidgetModelRow const& row);
    void addStreamEntries(QMenu& menu, ChannelListWidgetModelRow const& row);
    void addEntry(QMenu& menu, QString const& text, QString const& rootId, void (ChannelListWidget::*slot)());
    bool canWatch(ChannelListWidgetModelRow const& row);
    /// The row that a slot is about; null if there is none.
    ChannelListWidgetModelRow const* target() const;
    ChannelListWidgetModelRow const* rowAt(QModelIndex const& index) const;
    ChannelListWidgetModelRow const* rowOf(QString const& rootId) const;
    void showState(QString const& rootId);

    AppData& _appData;
    ChannelListWidgetModel* const _model;
    ChannelListWidgetProxyModel* const _shown;
    ChannelListFilters* const _filters;
    QStackedWidget* _pages = nullptr;
    ChannelView* _view = nullptr;
    PanelNotice* _notice = nullptr;
    QLabel* _message = nullptr;
    Content _content = Content::SignedOut;
    QString _contentText;
    QSet<QString> _favourites;
    ChannelRowStates _states;
    bool _areStreamsChanged = false; ///< Of the active channel, by the viewer.
    QString _target;                 ///< The root id that the next slot is about; empty for the current row's.
    QPointer<QMenu> _menu;
    QString _menuId; ///< Whose it is.
    QPointer<DeleteChannelDialog> _deleteDialog;
    QString _deleteId; ///< Likewise.
};
