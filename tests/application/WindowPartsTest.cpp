// What the window is put together from: keys, place, files, tabs, letters of menus, icons, the frame of the skin.

#include "AppData.h"
#include "Contrast.h"
#include "DesktopMotion.h"
#include "FileChannels.h"
#include "Icons.h"
#include "KeyRepeats.h"
#include "Mnemonics.h"
#include "PlainToolTip.h"
#include "ReadableStyle.h"
#include "SettingsFile.h"
#include "SkinFrame.h"
#include "SkinPalette.h"
#include "TabWidget.h"
#include "Translations.h"
#include "WindowKeys.h"
#include "WindowPlace.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QKeyEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QTextDocument>
#include <QUrl>

#include <gtest/gtest.h>

namespace
{

class WindowKeysTest : public testing::Test
{
protected:
    WindowKeysTest() { _settings.createActions(); }

    bool release(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier, bool isRepeat = false)
    {
        return _keys.release(QKeyEvent(QEvent::KeyRelease, key, modifiers, {}, isRepeat));
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        _keys.press(QKeyEvent(QEvent::KeyPress, key, modifiers));
    }

    AppSettings _settings;
    WindowKeys _keys{_settings};
};

} // namespace

TEST_F(WindowKeysTest, ActOnceWhenTheyAreLetGo)
{
    QSignalSpy mute(_settings.action(MenuAction::Mute), &QAction::triggered);
    press(Qt::Key_M);
    EXPECT_FALSE(release(Qt::Key_M, Qt::ControlModifier, true)) << "held";
    EXPECT_EQ(mute.count(), 0);
    EXPECT_TRUE(release(Qt::Key_M));
    EXPECT_EQ(mute.count(), 1);
    press(Qt::Key_M);
    EXPECT_FALSE(release(Qt::Key_Control));
    EXPECT_TRUE(release(Qt::Key_M, Qt::NoModifier)) << "the control key was let go first";
    EXPECT_EQ(mute.count(), 2);
    EXPECT_FALSE(release(Qt::Key_M, Qt::NoModifier)) << "without it";
    EXPECT_FALSE(release(Qt::Key_M, Qt::ControlModifier | Qt::ShiftModifier)) << "another shortcut";
    _settings.action(MenuAction::Mute)->setEnabled(false);
    EXPECT_TRUE(release(Qt::Key_M));
    EXPECT_EQ(mute.count(), 2);
}

TEST_F(WindowKeysTest, FullScreenIsLeftByEscapeAndHasNoTabs)
{
    QSignalSpy fullScreen(_settings.action(MenuAction::FullScreen), &QAction::triggered);
    QSignalSpy tabs(_settings.action(MenuAction::Tabs), &QAction::triggered);
    EXPECT_FALSE(release(Qt::Key_Escape, Qt::NoModifier));
    EXPECT_TRUE(release(Qt::Key_T));
    _settings.setShowFullScreen(true);
    EXPECT_TRUE(release(Qt::Key_T));
    EXPECT_EQ(tabs.count(), 1);
    EXPECT_FALSE(release(Qt::Key_Escape, Qt::NoModifier)) << "its press has closed a menu";
    press(Qt::Key_Escape, Qt::NoModifier);
    _keys.forget();
    EXPECT_FALSE(release(Qt::Key_Escape, Qt::NoModifier)) << "another window has come meanwhile";
    press(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_TRUE(release(Qt::Key_Escape, Qt::NoModifier));
    EXPECT_EQ(fullScreen.count(), 1);
}

TEST_F(WindowKeysTest, DoWhatTheMenusShowBesideTheEntries)
{
    int found = 0;
    for (int key = Qt::Key_Space; key <= Qt::Key_Down; key = key == Qt::Key_Z ? Qt::Key_Left : key + 1) {
        if (!_keys.isOurs(QKeyEvent(QEvent::KeyPress, key, Qt::ControlModifier)))
            continue;
        ++found;
        QKeySequence const shortcut(Qt::CTRL | static_cast<Qt::Key>(key));
        for (int i = 0; i < menuActionCount; ++i) {
            QAction* const action = _settings.action(static_cast<MenuAction>(i));
            QSignalSpy triggered(action, &QAction::triggered);
            release(key);
            EXPECT_EQ(triggered.count(), action->shortcuts().contains(shortcut))
                << qPrintable(shortcut.toString() + ' ' + action->text());
        }
    }
    EXPECT_GT(found, 0);
}

TEST(KeyRepeats, AreReleasesThatAPressOfTheSameTimeFollows)
{
    QObject window;
    QAction action;
    action.setAutoRepeat(false);
    QString told;
    KeyRepeats repeats([&](QObject*, QEvent* event) {
        auto const* const key = static_cast<QKeyEvent*>(event);
        told += key->text() + (event->type() == QEvent::KeyRelease ? '-' : '+') + (key->isAutoRepeat() ? "~ " : " ");
    });
    auto const send = [&](QEvent::Type type, char key, quint64 time) {
        QKeyEvent event(type, Qt::Key_A + key - 'a', {}, key, 0, 0, QString(QChar(key)));
        event.setTimestamp(time);
        if (!repeats.take(&window, &event))
            told += QString(QChar(key)) + (type == QEvent::KeyRelease ? "-! " : "+! ");
    };
    QShortcutEvent shortcut({}, 1);
    send(QEvent::KeyPress, 'a', 100);
    EXPECT_FALSE(repeats.take(&action, &shortcut));
    for (quint64 const time : {600, 640}) {
        send(QEvent::KeyRelease, 'a', time);
        send(QEvent::ShortcutOverride, 'a', time);
        EXPECT_TRUE(repeats.take(&action, &shortcut)) << "acts once";
        send(QEvent::KeyPress, 'a', time);
    }
    EXPECT_EQ(told, "a+! a-~ a+~ a+~ a-~ a+~ a+~ ");
    told.clear();
    send(QEvent::KeyRelease, 'a', 670);
    EXPECT_EQ(told, "") << "waits";
    ASSERT_TRUE(QTest::qWaitFor([&] { return !told.isEmpty(); }));
    send(QEvent::KeyPress, 'a', 700);
    EXPECT_FALSE(repeats.take(&action, &shortcut));
    send(QEvent::KeyRelease, 'a', 710);
    send(QEvent::KeyPress, 'b', 710);
    send(QEvent::KeyRelease, 'b', 720);
    QEvent focusOut(QEvent::FocusOut);
    EXPECT_FALSE(repeats.take(&window, &focusOut));
    EXPECT_EQ(told, "a- a+! a- b+! b- ") << "in order, whatever follows";
    told.clear();
    send(QEvent::KeyRelease, 'b', 730);
    QEvent close(QEvent::Close);
    EXPECT_FALSE(repeats.take(&window, &close));
    send(QEvent::KeyPress, 'a', 740);
    EXPECT_EQ(told, "a+! ") << "a window that ends gets no more keys";
}

TEST(WindowPlace, IsWhereADisplayIs)
{
    QRect const left(0, 0, 1280, 776);
    QRect const right(1280, 0, 1920, 1080);
    struct Case {
        QRect before;
        QList<QRect> displays;
        QRect after;
    };
    for (Case const& c : {
             Case{{100, 100, 800, 500}, {left, right}, {100, 100, 800, 500}},
             Case{{1900, 300, 800, 500}, {left, right}, {1900, 300, 800, 500}},
             Case{{1900, 300, 800, 500}, {left}, {480, 276, 800, 500}},          // The other has gone.
             Case{{1200, -40, 800, 500}, {left, right}, {1280, 0, 800, 500}},    // Most of it is on the right.
             Case{{-5000, -5000, 4000, 3000}, {left, right}, {0, 0, 1280, 776}}, // Nowhere, and too large.
         })
        EXPECT_EQ(WindowPlace::fitted(c.before, c.displays), c.after);
}

TEST(Mnemonics, AreUniqueInAMenu)
{
    EXPECT_EQ(
        Mnemonics::unique({"&Open File", "&Open Files", "Save", "&Save As", "Rock && Roll", "1:1", "&Open", "%"}),
        QStringList({"&Open File", "Open &Files", "S&ave", "&Save As", "&Rock && Roll", "&1:1", "O&pen", "%"}));
    QStringList const once = Mnemonics::unique({"&Öffnen", "&Öffnen", "o", "o"});
    EXPECT_EQ(Mnemonics::unique(once), once);
}

TEST(FileChannels, TakesFilesAndAddressesThatAreDropped)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/films/a b.mp4"), QUrl("http://host/live")});
    EXPECT_EQ(FileChannels::namesOf(data), QStringList({"file:///films/a%20b.mp4", "http://host/live"}));
    QMimeData text;
    text.setText("see\nrtsp://host/x \r\nnot this");
    EXPECT_EQ(FileChannels::namesOf(text), QStringList("rtsp://host/x"));

    ChannelDescription const channel = FileChannels::createFileChannel({"/films/a.mp4", "/films/b.mp4"});
    EXPECT_EQ(channel.channelType(), ChannelDescription::FileChannel);
    EXPECT_EQ(channel.streamDescriptions().size(), 2);
}

TEST(TabWidget, KeepsTheOrderThatTheViewerHasGivenItsTabs)
{
    AppSettings settings;
    QStringList const names = {"Channels", "Search", "Chat"};
    for (bool const isMoved : {false, true}) {
        TabWidget tabs(settings);
        for (QString const& name : names)
            tabs.addTab(new QWidget(&tabs), name);
        if (!isMoved)
            tabs.tabBar()->moveTab(2, 0);
        EXPECT_EQ(settings.tabPositions(), QList<int>({2, 0, 1}));
        EXPECT_EQ(tabs.tabText(0), "Chat");
    }
    settings.setTabPositions({7, -1, 1, 1}); // Written by hand.
    TabWidget tabs(settings);
    for (QString const& name : names)
        tabs.addTab(new QWidget(&tabs), name);
    EXPECT_EQ(tabs.tabText(0), "Search");
    EXPECT_EQ(tabs.count(), 3);
}

TEST(TabWidget, ArrowsAreItsOwnWhileItHasTheFocus)
{
    AppSettings settings;
    TabWidget tabs(settings);
    auto const isTaken = [&tabs](int key, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
        event.ignore();
        QApplication::sendEvent(tabs.tabBar(), &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(isTaken(Qt::Key_Left, Qt::NoModifier));
    EXPECT_FALSE(isTaken(Qt::Key_Left, Qt::ControlModifier));
    EXPECT_FALSE(isTaken(Qt::Key_Up, Qt::NoModifier));
}

TEST(PlainToolTip, ShowsALetterAsItIs)
{
    QTextDocument document;
    document.setHtml(plainToolTip("AT&T \"Live\" <b>"));
    EXPECT_EQ(document.toPlainText(), "AT&T \"Live\" <b>");
    EXPECT_TRUE(Qt::mightBeRichText(plainToolTip("News & Sport")));
    EXPECT_EQ(plainToolTip({}), QString());
}

TEST(Icons, AreAllThereAndHaveTheColourThatIsAskedFor)
{
    for (int i = 0; i < Icons::count; ++i) {
        auto const icon = static_cast<Icon>(i);
        ASSERT_TRUE(QFile::exists(Icons::path(icon))) << qPrintable(Icons::path(icon));
        QImage const image = Icons::image(icon, 48, Qt::red);
        int drawn = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                QColor const colour = image.pixelColor(x, y);
                drawn += colour.alpha() > 128;
                ASSERT_EQ(colour.green() + colour.blue(), 0);
            }
        EXPECT_GT(drawn, 60) << qPrintable(Icons::path(icon));
    }
    EXPECT_EQ(Icons::icon(Icon::Play).pixmap(QSize(16, 16), 2.0).size(), QSize(32, 32));
    EXPECT_TRUE(Icons::image(Icon::Play, 0, Qt::red).isNull());
}

TEST(SkinFrame, HasRoundCornersAndEdgesForResizing)
{
    QRegion const mask = SkinFrame::roundedMask({100, 60}, 10);
    EXPECT_FALSE(mask.contains(QPoint(0, 0)) || mask.contains(QPoint(99, 0)) || mask.contains(QPoint(0, 59)) ||
                 mask.contains(QPoint(99, 59)));
    EXPECT_TRUE(mask.contains(QPoint(0, 12)) && mask.contains(QPoint(12, 0)) && mask.contains(QPoint(99, 47)));
    EXPECT_EQ(SkinFrame::roundedMask({100, 60}, 500), SkinFrame::roundedMask({100, 60}, 30));

    AppSettings settings;
    QWidget window;
    window.resize(200, 100);
    SkinFrame frame(window, settings, TitleBar::Buttons::All);
    EXPECT_EQ(frame.edgesAt({0, 0}), Qt::Edges()) << "the window manager's frame";
    settings.setShowWindowFrame(false);
    EXPECT_EQ(frame.edgesAt({0, 0}), Qt::LeftEdge | Qt::TopEdge);
    EXPECT_EQ(frame.edgesAt({199, 50}), Qt::Edges(Qt::RightEdge));
    EXPECT_EQ(frame.edgesAt({190, 99}), Qt::RightEdge | Qt::BottomEdge);
    EXPECT_EQ(frame.edgesAt({100, 50}), Qt::Edges());
    EXPECT_TRUE(window.windowFlags() & Qt::FramelessWindowHint);
    window.setWindowState(Qt::WindowMaximized);
    EXPECT_EQ(frame.edgesAt({0, 0}), Qt::Edges()) << "no edge to be seen";
}

TEST(ReadableStyle, WordsAndOutlinesAreSeenInPalettesThatSayLittle)
{
    QPalette const palettes[] = {QPalette(Qt::black, Qt::black), QPalette(QColor(42, 46, 50)),
                                 QPalette(Qt::lightGray), skinPalette()};
    for (QPalette palette : palettes) {
        ReadableStyle style;
        style.polish(palette);
        QColor const ground = palette.color(QPalette::Base);
        QColor const hint = palette.color(QPalette::PlaceholderText);
        EXPECT_GE(Contrast::between(Contrast::mixed(hint, ground, hint.alphaF()), ground), Contrast::ofText);
        EXPECT_GE(Contrast::between(palette.color(QPalette::Link), palette.color(QPalette::Window)),
                  Contrast::ofText);
        EXPECT_GE(Contrast::between(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)),
                  Contrast::ofText);
        EXPECT_GE(Contrast::between(palette.color(QPalette::Disabled, QPalette::ButtonText),
                                    palette.color(QPalette::Disabled, QPalette::Button)),
                  2.4);
        QCheckBox box;
        box.setStyle(&style);
        box.setPalette(palette);
        box.resize(box.sizeHint());
        QImage const image = box.grab().toImage();
        double most = 1.0;
        for (int x = 0; x < image.width(); ++x)
            most = std::max(
                most, Contrast::between(image.pixelColor(x, image.height() / 2), palette.color(QPalette::Window)));
        EXPECT_GE(most, 1.5) << "the box is not seen on " << qPrintable(palette.color(QPalette::Window).name());
    }
}

TEST(DesktopMotion, UnderstandsTheWordsOfEachDesktop)
{
    EXPECT_EQ(DesktopMotion::meaning("org.freedesktop.appearance", "reduced-motion", 1U), true);
    EXPECT_EQ(DesktopMotion::meaning("org.gnome.desktop.interface", "enable-animations", true), false);
    EXPECT_EQ(DesktopMotion::meaning("org.kde.kdeglobals.KDE", "AnimationDurationFactor", "0"), true);
    EXPECT_EQ(DesktopMotion::meaning("org.gnome.desktop.interface", "font-name", "x"), std::nullopt);
}

TEST(Translations, FollowTheLocaleAndItsDirection)
{
    auto const text = [] { return QCoreApplication::translate("MenuActions", "Full Screen"); };
    {
        Translations const german(QLocale("de_CH"));
        EXPECT_EQ(text(), "Vollbild");
        EXPECT_EQ(QCoreApplication::translate("Window", "Your account shows %n channel(s) at once.", nullptr, 1),
                  "Ihr Konto zeigt einen Sender auf einmal.");
    }
    for (Translations::Language const& language : Translations::languages()) {
        Translations const chosen(Translations::localeOf(language.code));
        QString const word = QCoreApplication::translate("ChannelRowStates", "Playing");
        EXPECT_EQ(word == "Playing", language.code == QStringLiteral("en")) << language.name;
    }
    EXPECT_EQ(Translations::localeOf("xx"), QLocale());
    Translations const arabic(QLocale("ar_EG"));
    EXPECT_EQ(QApplication::layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(QCoreApplication::translate("Window", "Your account shows %n channel(s) at once.", nullptr, 1),
              "Your account shows 1 channel at once.");
    QApplication::setLayoutDirection(Qt::LeftToRight);
}
