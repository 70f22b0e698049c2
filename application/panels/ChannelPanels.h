#pragma once

#include "ChannelDescription.h"
#include "ChannelRowState.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>

class AppData;
class Channel;
class ChannelListWidget;
class ChannelSearchWidget;
class MyChannels;
class QWidget;

/// The two panels of channels, and what connects them with the rest of the program: their requests go to the channel
/// manager and the service, and they are told what has happened. It stands here rather than in the window, whose
/// slots these would be.
///
/// A channel that is looked at only, of the search or of the list, is one of the manager's as long as it is open or
/// about to be. Main thread only.
class ChannelPanels : public QObject
{
    Q_OBJECT

public:
    /// The hub is initialised, and outlives this. The parent is the widgets' as well, until they are put elsewhere.
    ChannelPanels(AppData& appData, QWidget* parent);
    ~ChannelPanels() override;

    /// To be put into tabs. Owned by where they are.
    ChannelListWidget* list() const { return _list; }
    ChannelSearchWidget* search() const { return _search; }

public slots:
    void onChannelListWidgetOpenChannel(ChannelDescription const& description, bool nonMultiview);
    void onChannelListWidgetCloseChannel(ChannelDescription const& description);
    void onChannelListWidgetPurchaseChannel(ChannelDescription const& description);
    void onChannelListWidgetManageChannels();
    void onChannelListWidgetRefreshButtonClicked();
    void onChannelListWidgetAddStream(StreamDescription const& stream);
    void onChannelListWidgetRemoveStream(StreamDescription const& stream);
    void onChannelListWidgetResetStreams();
    void onChannelSearchWidgetOpenChannel(ChannelDescription const& description, bool nonMultiview);
    void onChannelSearchWidgetCloseChannel(ChannelDescription const& description);
    void onChannelSearchWidgetWebSearch();

private:
    void connectList();
    void connectSearch();
    void connectChannels();
    void connectAccount();
    void onChannelClicked(ChannelDescription const& description, bool isModifierHeld);
    void onPreviewChannel(ChannelDescription const& description);
    /// Asks for a channel of the viewer's own.
    void onCreateChannel();
    void onDeleteChannel(ChannelDescription const& description);
    void onDeleted(QString const& rootId);
    void onDeletionFailed(QString const& method, QString const& text);
    void onChannelsUpdated();
    void onChannelAdded(ChannelDescription const& description);
    void onChannelChanged(Channel const* from, Channel const* to);
    void onChannelError(Channel* channel, QString const& text);
    void onSignedInChanged();
    void showContent();
    void showState(Channel const* channel);
    void showPreview();
    void leavePreview();
    void refreshDirectory();
    void onDirectoryRefreshed(QString const& problem);
    void tidySoon();
    void tidy();
    void openPage(QString const& address);
    static bool isLookedAtOnly(Channel const& channel);

    AppData& _appData;
    ChannelListWidget* const _list;
    ChannelSearchWidget* const _search;
    MyChannels* const _myChannels;
    QString _failure;           ///< Of the directory, in words.
    QString _preview;           ///< The root id of a channel of the list that is shown for a look.
    QStringList _beforePreview; ///< What was open before, the active one in front.
    QHash<QString, QList<StreamDescription>> _ownStreams; ///< By root id, of channels that have others now.
    bool _isRefreshWanted = false;                        ///< By the viewer, who is to hear of a failure.
    bool _isTidyPending = false;
};
