#include "AppData.h"
#include "Channel.h"
#include "ChannelAction.h"
#include "ChannelListWidget.h"
#include "ChannelManager.h"
#include "ChannelPanels.h"
#include "ChannelRowPainter.h"
#include "ChannelSearchWidget.h"
#include "ChannelTitle.h"
#include "ChannelView.h"
#include "DeleteChannelDialog.h"
#include "EventLoop.h"
#include "FoldedText.h"
#include "NewChannelDialog.h"
#include "OwnChannels.h"
#include "SettingsFile.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace
{

using ListedType = ChannelDescription::ChannelType;

ChannelDescription listed(QString const& id, QString const& title,
                          ListedType type = ChannelDescription::PublicChannel,
                          LanguageId const& language = LanguageId::English())
{
    ChannelDescription description;
    description.setId(id);
    description.setRootId(id);
    description.setTitle(title);
    description.setChannelType(type);
    description.setHasAlerts(id == "a");
    StreamDescription stream(Uri("nothing://host/" + id));
    stream.appendTrackDescription({language, TrackDescription::VideoTrack});
    description.appendStreamDescription(stream);
    return description;
}

QList<ChannelDescription> listedChannels()
{
    return {listed("a", QString::fromUtf8("Été Ærø 10"), ChannelDescription::PublicChannel, LanguageId::German()),
            listed("b", "ete Aero 2", ChannelDescription::SecureChannel),
            listed("c", "Cinema", ChannelDescription::PayPerViewChannel),
            listed("d", "deutsches Fernsehen", ChannelDescription::UserChannel)};
}

class ChannelListTest : public testing::Test
{
protected:
    ChannelListTest()
    {
        settingsFile().clear();
        settingsFile().setValue("application/service/url", "http://127.0.0.1:9"); // Nobody is there.
        _appData.initialize(nullptr);
        list = std::make_unique<ChannelListWidget>(_appData);
        list->resize(400, 500);
        list->show();
        list->setContent(ChannelListWidget::Content::Ready);
    }
    ~ChannelListTest() override
    {
        list.reset();
        _appData.uninitialize();
        settingsFile().clear();
    }

    QString shown() const
    {
        QStringList ids;
        for (int row = 0; row < list->shownModel().rowCount(); ++row)
            ids.append(
                list->model().row(list->shownModel().mapToSource(list->shownModel().index(row, 0)).row()).rootId);
        return ids.join(' ');
    }
    QModelIndex indexOf(QString const& id, int column = ChannelListWidgetModel::NameColumn) const
    {
        return list->shownModel().mapFromSource(list->model().index(list->model().findRow(id), column));
    }
    template<typename Child>
    Child* child(char const* name) const
    {
        return list->findChild<Child*>(name);
    }
    void filter(QString const& text) { child<QLineEdit>("filter")->setText(text); }
    QString stateOf(QString const& id) const
    {
        return indexOf(id, ChannelListWidgetModel::StatusColumn).data().toString();
    }
    void click(QModelIndex const& index, Qt::KeyboardModifiers modifiers = {})
    {
        QPoint const point = list->view()->visualRect(index).center();
        QTest::mouseClick(list->view()->viewport(), Qt::LeftButton, modifiers, point);
    }
    /// The entries of a row's menu, which is open then.
    QStringList menuOf(QString const& id)
    {
        emit list->view()->menuRequested(indexOf(id), {});
        QStringList texts;
        auto const* const menu = list->findChild<QMenu*>("channelMenu");
        for (QAction const* const action : menu ? menu->actions() : QList<QAction*>())
            if (!action->isSeparator() && !action->menu())
                texts.append(action->text());
        return texts;
    }
    void choose(QString const& text)
    {
        auto* const menu = list->findChild<QMenu*>("channelMenu");
        for (QAction* const action : menu->actions())
            if (action->text() == text)
                action->trigger();
        menu->close();
        QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
    }

    AppData _appData;
    std::unique_ptr<ChannelListWidget> list;
};

} // namespace

TEST_F(ChannelListTest, FiltersByFoldedTitleLanguageKindAndFavourites)
{
    QAbstractItemModelTester const tester(const_cast<ChannelListWidgetProxyModel*>(&list->shownModel()),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    list->onChannelsUpdated(listedChannels());
    EXPECT_EQ(shown(), "c d b a") << "in order of folded titles, 2 before 10";
    for (auto const& [text, ids] : QList<std::pair<QString, QString>>{{"ETE", "b a"},
                                                                      {QString::fromUtf8("ærö é"), "b a"},
                                                                      {"deutsch", "d a"},
                                                                      {"german ete", "a"},
                                                                      {"deu", "d a"},
                                                                      {"nowhere", ""},
                                                                      {"  ", "c d b a"}}) {
        filter(text);
        EXPECT_EQ(shown(), ids) << text.toStdString();
    }
    auto* const kinds = child<QComboBox>("kinds");
    QStringList byKind;
    for (int kind = 0; kind < kinds->count(); ++kind) {
        kinds->setCurrentIndex(kind);
        byKind.append(kinds->itemText(kind) + ": " + shown());
    }
    EXPECT_EQ(byKind, (QStringList{"Any: c d b a", "Premium Partner: c b", "Free Partner: a", "Viewer Added: d"}));
    kinds->setCurrentIndex(0);
    _appData.settings.setFavouriteChannels({"b"});
    child<QToolButton>("favouritesOnly")->click();
    EXPECT_EQ(shown(), "b");
    filter("cinema");
    EXPECT_EQ(child<QLabel>("notice")->text(), "No channel fits your filters.");
    child<QPushButton>("noticeButton")->click();
    EXPECT_EQ(shown(), "c d b a");
}

TEST_F(ChannelListTest, AFilterThatLeavesFewRowsMovesNoColumn)
{
    QList<ChannelDescription> many = listedChannels();
    for (int i = 0; i < 50; ++i)
        many.append(listed(QString::number(i), QString::number(i)));
    list->onChannelsUpdated(many);
    for (int width = 300; width < 600; width += 12) {
        list->resize(width, 500);
        filter({});
        QApplication::processEvents();
        bool const before = list->view()->hasStateColumn();
        filter("cinema");
        QApplication::processEvents();
        EXPECT_EQ(list->view()->hasStateColumn(), before) << width;
    }
    EXPECT_TRUE(list->view()->hasStateColumn());
}

TEST_F(ChannelListTest, SortsByEachColumnAndSaysEachState)
{
    list->onChannelsUpdated(listedChannels());
    for (char const* const id : {"a", "b", "d"})
        list->onChannelOpened(listed(id, id));
    EXPECT_EQ(stateOf("a"), "Acquiring");
    list->onChannelChanged(listed("b", "b"));
    for (char const* const id : {"a", "b"})
        list->states().setState(id, ChannelRowState::Playing);
    list->states().setState("d", ChannelRowState::Failed);
    EXPECT_EQ(stateOf("a") + stateOf("b") + stateOf("c") + stateOf("d"), "OpenPlayingFailed");
    list->view()->sortByColumn(ChannelListWidgetModel::StatusColumn, Qt::AscendingOrder);
    EXPECT_EQ(shown(), "b a d c");
    list->view()->sortByColumn(ChannelListWidgetModel::AlertsColumn, Qt::AscendingOrder);
    EXPECT_EQ(shown(), "a c d b") << "those with alerts in front";
    list->states().setPreview("b");
    EXPECT_EQ(stateOf("b"), "Previewing");
    list->onChannelClosed(listed("b", "b"));
    EXPECT_EQ(stateOf("b"), "");
}

TEST_F(ChannelListTest, AnUpdateKeepsSelectionCurrentRowAndScrollPosition)
{
    QList<ChannelDescription> many;
    for (int i = 0; i < 5000; ++i)
        many.append(listed(QString::number(i), QString("Channel %1").arg(i)));
    list->onChannelsUpdated(many);
    list->view()->setCurrentIndex(indexOf("2000"));
    QTest::qWait(0);
    list->view()->scrollTo(indexOf("2003"), QAbstractItemView::PositionAtTop);
    list->view()->verticalScrollBar()->setValue(list->view()->verticalScrollBar()->value() + 7);
    QRect const before = list->view()->visualRect(indexOf("2003"));
    int layouts = 0;
    QObject::connect(&list->shownModel(), &QAbstractItemModel::layoutChanged, list.get(), [&] { ++layouts; });
    many.remove(10, 500);
    many[1000].setTitle("Another title");
    many.append(listed("new", "Channel 0 and more"));
    list->onChannelsUpdated(many);
    EXPECT_EQ(layouts, 1);
    EXPECT_EQ(list->view()->currentIndex(), indexOf("2000"));
    EXPECT_TRUE(list->view()->selectionModel()->isRowSelected(indexOf("2000").row(), {}));
    EXPECT_EQ(list->view()->visualRect(indexOf("2003")), before);
    ChannelDescription logo = many.last();
    logo.setLogo(QImage(1, 10000, QImage::Format_ARGB32));
    QSignalSpy const changed(&list->shownModel(), &QAbstractItemModel::dataChanged);
    list->onChannelLogoUpdated(logo);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(layouts, 1);
    many.removeIf([](ChannelDescription const& channel) { return channel.rootId() == "2000"; });
    list->onChannelsUpdated(many);
    EXPECT_EQ(list->view()->currentIndex(), indexOf("2001")) << "what stands in its place";
}

TEST_F(ChannelListTest, WhatWasExpectedIsShownAsItComes)
{
    list->expectChannel(listed("a", "Before"));
    list->expectChannel(listed("b", "Beside"));
    list->expectChannel(listed("gone", "Gone"));
    list->onChannelsUpdated({listed("a", "After"), listed("b", "Beside"), listed("c", "Cinema")});
    EXPECT_EQ(shown(), "a b c");
    EXPECT_EQ(indexOf("a").data().toString(), "After");
}

TEST_F(ChannelListTest, ClicksAndKeysAskForWhatTheRowCanDo)
{
    QList<ChannelDescription> channels = listedChannels();
    channels[2].setPurchaseUrl("http://buy/");
    channels[3].setAvailable(false);
    channels[3].setUnavailableReason("<b>Not</b> here");
    list->onChannelsUpdated(channels);
    QSignalSpy clicked(list.get(), &ChannelListWidget::channelClicked);
    QSignalSpy opened(list.get(), &ChannelListWidget::openChannel);
    QSignalSpy bought(list.get(), &ChannelListWidget::purchaseChannel);
    QSignalSpy previewed(list.get(), &ChannelListWidget::previewChannel);
    QSignalSpy alerts(list.get(), &ChannelListWidget::showChannelBreakingNewsAlerts);
    click(indexOf("b"), Qt::ControlModifier);
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_TRUE(clicked[0][1].toBool());
    EXPECT_EQ(list->view()->currentIndex(), indexOf("b"));
    QPoint const point = list->view()->visualRect(indexOf("b")).center();
    QTest::mouseDClick(list->view()->viewport(), Qt::LeftButton, {}, point);
    QTest::mouseRelease(list->view()->viewport(), Qt::LeftButton, {}, point);
    EXPECT_EQ(clicked.size(), 1) << "two clicks are one";
    click(indexOf("c"));
    EXPECT_EQ(bought.size(), 1);
    click(indexOf("d"));
    EXPECT_EQ(child<QLabel>("message")->text(), "<b>Not</b> here");
    EXPECT_EQ(clicked.size(), 1);
    click(indexOf("a", ChannelListWidgetModel::AlertsColumn));
    EXPECT_EQ(alerts.value(0), (QVariantList{"a", false}));
    EXPECT_FALSE(_appData.settings.channelAlerts("a", true));
    list->view()->setCurrentIndex(indexOf("b"));
    QTest::keyClick(list->view(), Qt::Key_Return);
    QTest::keyClick(list->view(), Qt::Key_Return, Qt::ControlModifier);
    ASSERT_EQ(opened.size(), 2);
    EXPECT_TRUE(opened[0][1].toBool() && !opened[1][1].toBool());
    QTest::keyClick(list->view(), Qt::Key_Space);
    EXPECT_EQ(previewed.size(), 1);
    QTest::keyClick(list->view(), Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(_appData.settings.favouriteChannels(), QStringList("b"));
    QTest::keyClicks(list->view(), "eter");
    EXPECT_EQ(child<QLineEdit>("filter")->text().left(1), "e");
}

TEST_F(ChannelListTest, AMovementKeyIsTheListsAlsoWhereItEnds)
{
    list->onChannelsUpdated(listedChannels());
    ChannelView* const view = list->view();
    int const last = list->shownModel().rowCount() - 1;
    view->setCurrentIndex(list->shownModel().index(last, ChannelListWidgetModel::NameColumn));
    for (Qt::Key const key : {Qt::Key_PageDown, Qt::Key_Down, Qt::Key_End}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &press);
        EXPECT_TRUE(press.isAccepted()) << key;
    }
    EXPECT_EQ(view->currentIndex().row(), last);
}

TEST_F(ChannelListTest, NoTitleIsWiderThanAMenuNorUnseen)
{
    for (char16_t const* const blank : {u"", u" \u00A0", u"\u200B\u2060"})
        EXPECT_EQ(ChannelTitle::shown(QString::fromUtf16(blank), 9), "Unnamed channel");
    EXPECT_EQ(ChannelTitle::shown("abcde", 5), "abcde");
    EXPECT_EQ(ChannelTitle::shown("abcdef", 5), QString::fromUtf8("abcde…"));
    EXPECT_EQ(ChannelTitle::shown(QString::fromUtf8("abcd😀"), 5), QString::fromUtf8("abcd…"));
    Channel channel(_appData);
    channel.desc = listed("w", QString("&").repeated(10000));
    EXPECT_EQ(ChannelAction(&channel).text(), QString("&&").repeated(60) + QChar(0x2026));
}

TEST_F(ChannelListTest, TheMenuHasWhatFitsTheRow)
{
    QList<ChannelDescription> channels = listedChannels();
    channels[2].setPurchaseUrl("http://buy/");
    list->onChannelsUpdated(channels);
    EXPECT_EQ(menuOf("a"),
              (QStringList{"Play", "Preview", "Favourite", "Breaking News Alerts", "Delete from My Channels"}));
    choose({});
    EXPECT_EQ(menuOf("c"), (QStringList{"Preview", "Purchase", "Favourite"}));
    choose({});
    for (char const* const id : {"a", "b"})
        list->onChannelOpened(listed(id, id));
    list->onChannelChanged(channels[0]);
    list->states().setState("a", ChannelRowState::Playing);
    EXPECT_EQ(menuOf("a"),
              (QStringList{"Remove from Multiview", "Favourite", "Breaking News Alerts", "Delete from My Channels"}));
    choose({});
    QSignalSpy added(list.get(), &ChannelListWidget::addStream);
    EXPECT_EQ(menuOf("d"), (QStringList{"Play", "Add to Multiview", "Preview", "Add Stream", "Favourite",
                                        "Delete from My Channels"}));
    choose("Add Stream");
    ASSERT_EQ(added.size(), 1);
    ChannelDescription both = channels[0];
    both.appendStreamDescription(added[0][0].value<StreamDescription>());
    list->updateChannel(both);
    EXPECT_TRUE(menuOf("d").contains("Remove Stream"));
    QSignalSpy const played(list.get(), &ChannelListWidget::openChannel);
    list->onChannelsUpdated(channels.first(2));
    choose("Play");
    EXPECT_TRUE(played.isEmpty()) << "it has gone while its menu was open";
    EXPECT_TRUE(menuOf("a").contains("Reset Streams"));
}

TEST_F(ChannelListTest, AlertsAreOnForAChannelThatGetsThemAndNoPasswordIsKept)
{
    ChannelDescription channel = listed("a", "A");
    channel.setHasAlerts(false);
    list->onChannelsUpdated({channel});
    channel.setHasAlerts(true);
    list->onChannelsUpdated({channel});
    EXPECT_EQ(indexOf("a", ChannelListWidgetModel::AlertsColumn).data(), "On");

    ChannelDescription const secret = OwnChannels::describeStream("http://ann:pw@127.0.0.1/x", "x");
    ChannelDescription const plain = OwnChannels::describeStream("http://127.0.0.1/x", "x");
    list->onChannelsUpdated({secret, plain});
    for (ChannelDescription const& description : {secret, plain}) {
        menuOf(description.rootId());
        choose("Favourite");
    }
    EXPECT_EQ(_appData.settings.favouriteChannels(), QStringList(plain.rootId()));
}

TEST_F(ChannelListTest, DeletingAsksAndSurvivesAChannelThatVanishes)
{
    list->onChannelsUpdated({listed("a", QString("<b>&%1 ").repeated(2000)), listed("b", "B")});
    QSignalSpy deleted(list.get(), &ChannelListWidget::deleteChannel);
    QSignalSpy managed(list.get(), &ChannelListWidget::manageChannels);
    auto const ask = [this](QString const& id) {
        list->view()->setCurrentIndex(indexOf(id));
        QTest::keyClick(list->view(), Qt::Key_Delete);
        return list->findChild<DeleteChannelDialog*>();
    };
    DeleteChannelDialog* dialog = ask("a");
    ASSERT_TRUE(dialog && dialog->isVisible());
    auto* const text = dialog->findChild<QLabel*>("text");
    EXPECT_TRUE(text->text().startsWith("Are you sure you wish to delete the channel <b>&lt;b&gt;&amp;"));
    EXPECT_LT(text->text().size(), 1000);
    emit text->linkActivated("manage");
    EXPECT_EQ(managed.size(), 1);
    list->onChannelsUpdated({listed("b", "B")});
    EXPECT_FALSE(dialog->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(deleted.isEmpty());
    dialog = ask("b");
    dialog->findChild<QPushButton*>("delete")->click();
    ASSERT_EQ(deleted.size(), 1);
    EXPECT_EQ(deleted[0][0].value<ChannelDescription>().rootId(), "b");
}

TEST_F(ChannelListTest, SaysWhatThereIsInsteadOfChannels)
{
    using Content = ChannelListWidget::Content;
    QSignalSpy const refreshed(list.get(), &ChannelListWidget::refreshButtonClicked);
    QSignalSpy const signedIn(list.get(), &ChannelListWidget::signInClicked);
    auto const notice = [this](Content content, QString const& text = {}) {
        list->setContent(content, text);
        return QString(child<QLabel>("notice")->text() + " / " + child<QPushButton>("noticeButton")->text());
    };
    EXPECT_EQ(notice(Content::Ready), "There are no channels on your list. / Refresh");
    EXPECT_EQ(notice(Content::Loading), "Loading channels... / Refresh");
    EXPECT_EQ(notice(Content::Failed, "<i>No</i> service"), "<i>No</i> service / Refresh");
    child<QPushButton>("noticeButton")->click();
    EXPECT_EQ(notice(Content::SignedOut), "Sign in to see your channels. / Sign In");
    child<QPushButton>("noticeButton")->click();
    EXPECT_EQ(refreshed.size() + 10 * signedIn.size(), 11);
    list->onChannelsUpdated(listedChannels());
    list->setContent(Content::Failed, "No service");
    EXPECT_TRUE(list->view()->isVisible()) << "a list that is there goes on";
    EXPECT_EQ(child<QLabel>("message")->text(), "No service");
}

TEST_F(ChannelListTest, ALookAtAChannelLeadsBackAndIsForgottenWhereNobodyHasAddedIt)
{
    QWidget parent;
    ChannelPanels panels(_appData, &parent);
    ChannelManager& channels = *_appData.channelManager();
    for (char const* const id : {"a", "b", "c"})
        channels.addUserChannel(listed(id, id));
    channels.openChannel("a", false, true);
    channels.openChannel("b", false, false);
    emit panels.list()->previewChannel(listed("c", "c"));
    ASSERT_TRUE(processEventsUntil([&] { return channels.activeChannelRootId() == "c"; }));
    emit panels.list()->previewChannel(listed("c", "c"));
    ASSERT_TRUE(processEventsUntil([&] { return channels.openChannels().size() == 2; }));
    EXPECT_EQ(channels.activeChannelRootId(), "a");
    panels.onChannelSearchWidgetOpenChannel(listed("x", "x", ChannelDescription::UserChannel), true);
    ASSERT_TRUE(processEventsUntil([&] { return channels.activeChannelRootId() == "x"; }));
    EXPECT_EQ(panels.list()->model().row(panels.list()->model().findRow("x")).rootId, "x");
    channels.openChannel("a", false, true);
    ASSERT_TRUE(processEventsUntil([&] { return !channels.getChannelByRootId("x"); }));
    EXPECT_LT(panels.list()->model().findRow("x"), 0);
}

TEST_F(ChannelListTest, TheFormOfANewChannelStaysUntilTheServiceHasIt)
{
    QWidget parent;
    ChannelPanels panels(_appData, &parent);
    EXPECT_FALSE(panels.search()->findChild<QPushButton*>("create")->isEnabled()) << "nobody is signed in";
    emit panels.search()->createRequested();
    auto* const dialog = parent.findChild<NewChannelDialog*>();
    ASSERT_TRUE(dialog);
    dialog->findChild<QLineEdit*>("name")->setText("Mine");
    dialog->findChild<QLineEdit*>("address")->setText("mms://host/mine");
    auto* const create = dialog->findChild<QPushButton*>("createChannel");
    create->click();
    EXPECT_TRUE(dialog->isVisible() && create->isEnabled());
    EXPECT_EQ(dialog->findChild<QLabel*>("message")->text(), "Sign in to add a channel.");
    EXPECT_EQ(dialog->findChild<QLineEdit*>("name")->text(), "Mine");
    dialog->showProgress("...");
    EXPECT_FALSE(create->isEnabled());
    dialog->finish();
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(ChannelListTest, StreamsOfOthersComeAndGoWithWhatPlays)
{
    QWidget parent;
    ChannelPanels panels(_appData, &parent);
    ChannelManager& channels = *_appData.channelManager();
    Channel* const channel = channels.addUserChannel(listed("a", "a"));
    channels.openChannel("a", false, true);
    ASSERT_TRUE(processEventsUntil([&] { return channels.activeChannel() == channel; }));
    StreamDescription const other(Uri("nothing://host/other"));
    emit panels.list()->addStream(other);
    EXPECT_EQ(channel->desc.streamDescriptions().size(), 2);
    emit panels.list()->removeStream(channel->desc.streamDescriptions().constFirst());
    emit panels.list()->removeStream(other);
    EXPECT_EQ(channel->desc.streamDescriptions(), QList{other}) << "the last one stays";
    emit panels.list()->resetStreams();
    EXPECT_EQ(channel->desc.streamDescriptions(), listed("a", "a").streamDescriptions());
    emit panels.list()->addStream(other);
    channels.closeChannel(channel);
    EXPECT_TRUE(processEventsUntil([&] { return channel->desc.streamDescriptions().size() == 1; }));
}

TEST(ChannelRowPainter, MarksUponMarksStayInTheirRowAndWithTheirLetter)
{
    QString const letter = "e" + QString(60, QChar(0x0301)); // A letter with a tower of accents.
    QImage image(80, 90, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = QRect(0, 30, 80, 30);
        option.palette = QPalette(Qt::black, Qt::white);
        option.state = QStyle::State_Enabled | QStyle::State_Active;
        ChannelRowPainter(painter, option).paintText(letter.repeated(40));
    }
    QImage const white = [] {
        QImage blank(80, 30, QImage::Format_RGB32);
        blank.fill(Qt::white);
        return blank;
    }();
    EXPECT_EQ(image.copy(0, 0, 80, 30), white);
    EXPECT_NE(image.copy(0, 30, 80, 30), white);
    EXPECT_EQ(image.copy(0, 60, 80, 30), white);
    QFontMetrics const metrics{QFont()};
    QString const shown =
        metrics.elidedText(letter.repeated(40), Qt::ElideRight, metrics.horizontalAdvance("eeeeeeee"));
    EXPECT_GT(shown.size(), letter.size());
    EXPECT_EQ((shown.size() - 1) % letter.size(), 0) << "whole letters and the ellipsis";
}
