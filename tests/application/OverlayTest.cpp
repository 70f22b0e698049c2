#include "AppData.h"
#include "Channel.h"
#include "ChannelGrid.h"
#include "ChannelManager.h"
#include "ChannelTitle.h"
#include "GLCarousel.h"
#include "GLControlLayout.h"
#include "GLOverlay.h"
#include "SettingsFile.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace
{

class OverlayTest : public testing::Test
{
protected:
    OverlayTest()
    {
        settingsFile().clear();
        _appData.initialize(nullptr);
        _overlay = std::make_unique<GLOverlay>(_appData, &_layout);
        _layout.setSize({800, 480});
    }
    ~OverlayTest() override
    {
        _overlay.reset();
        _appData.uninitialize();
    }

    void move(double x, double y)
    {
        QMouseEvent event(QEvent::MouseMove, {x, y}, {x, y}, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        _layout.mouseMove({x, y}, &event);
        _overlay->ensureVisible(true);
    }
    /// "top", "bottom", both or none, as far as they are not about to go.
    std::string shown()
    {
        std::string names;
        if (_overlay->topCanvas()->isShown())
            names += "top ";
        if (_overlay->bottomCanvas()->isShown())
            names += "bottom ";
        return names;
    }
    QList<Channel*> addChannels(int count)
    {
        QList<Channel*> channels;
        for (int i = 0; i < count; ++i) {
            ChannelDescription description;
            description.setId(QString("id%1").arg(i));
            description.setRootId(description.id());
            description.setTitle(QString("%1").arg(i, 6, 10, QChar('0')));
            description.setChannelType(ChannelDescription::PublicChannel);
            channels.append(_appData.channelManager()->addChannel(description));
        }
        return channels;
    }

    AppData _appData;
    GLControlLayout _layout;
    std::unique_ptr<GLOverlay> _overlay;
};

} // namespace

TEST_F(OverlayTest, TheBarsGoAfterAnIntervalWithNoPointerOverThem)
{
    QSignalSpy const visibility(_overlay.get(), &GLOverlay::visibilityChanged);
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(_layout.patches().isEmpty()) << "nothing is drawn";
    move(400, 200);
    EXPECT_EQ(shown(), "top bottom ");
    EXPECT_EQ(visibility.size(), 1);
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "") << "it has rested for an interval";
    move(400, 450); // Over the bottom bar.
    _overlay->onFadeTimer();
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "top bottom ");
    _layout.leave();
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "top bottom ") << "not for a whole interval yet";
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "");

    auto const rest = [this] {
        for (int i = 0; i < 2; ++i)
            _overlay->onFadeTimer();
        return shown();
    };
    QList<Channel*> const channels = addChannels(1);
    emit _appData.channelManager()->channelError(nullptr, "gone");
    EXPECT_EQ(shown(), "top ");
    EXPECT_EQ(rest(), "");
    emit _appData.channelManager()->streamOpened(channels.first(), nullptr);
    emit _appData.channelManager()->channelError(nullptr, "gone");
    EXPECT_EQ(shown(), "") << "only another one was better meanwhile";
}

TEST_F(OverlayTest, WhatIsHeldStaysAndTheCarouselHasItsOwnBar)
{
    _overlay->ensureVisible(false);
    EXPECT_EQ(shown(), "top ");
    _overlay->setHeldByAlert(true);
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "top ");
    _overlay->setHeldByAlert(false);
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "");
    _appData.settings.setShowChannelBarOnMouseOver(false);
    _overlay->ensureVisible(true);
    EXPECT_EQ(shown(), "top ");
    _appData.settings.setShowChannelBarOnMouseOver(true);
    addChannels(1);
    _appData.settings.setCarouselMode(true);
    _overlay->ensureVisible(true);
    _overlay->onFadeTimer();
    EXPECT_EQ(shown(), "top ");
    EXPECT_TRUE(_overlay->areBarsVisible());
    _appData.settings.setCarouselMode(false);
    _overlay->ensureVisible(true);
    EXPECT_EQ(shown(), "top bottom ");
}

TEST_F(OverlayTest, WordsFollowWhatTheyAreAbout)
{
    auto const find = [](GLControl* holder, QString const& name) {
        for (GLControl* const control : holder->controls())
            if (control->name() == name)
                return control;
        return holder;
    };
    QList<Channel*> const channels = addChannels(3);
    move(400, 200);
    GLControl const* const mute = find(_overlay->bottomCanvas(), "Mute Button");
    QPointF const place = mute->geometry().translated(_overlay->bottomCanvas()->geometry().topLeft()).center();
    move(place.x(), place.y());
    GLControl const* const tip = find(_overlay.get(), "Tip");
    EXPECT_EQ(tip->label(), mute->label());
    QString const before = tip->label();
    _appData.settings.setMuted(true);
    EXPECT_NE(tip->label(), before);
    EXPECT_EQ(tip->label(), mute->label());
    _layout.setSize({1600, 900});
    EXPECT_FALSE(tip->isShown()) << "the button is elsewhere";

    GLControl* const hint = find(_overlay.get(), "Hint");
    hint->setVisible(true);
    _appData.settings.setCarouselMode(true);
    EXPECT_FALSE(hint->isVisible());
    _overlay->setCarouselChannel("id2");
    emit _appData.channelsUpdated();
    GLControl const* const title = find(_overlay->topCanvas(), "Title");
    EXPECT_EQ(title->label(), channels.at(2)->desc.title());
    channels.at(2)->desc.setTitle(QString(10000, 'w'));
    emit _appData.channelsUpdated();
    EXPECT_EQ(title->label(), ChannelTitle::shown(channels.at(2)->desc.title())) << "as the list has it";
    channels.at(2)->desc.setTitle(QString(QChar(0x200b)));
    _overlay->setCarouselChannel("id2");
    EXPECT_EQ(title->label(), "Unnamed channel");
    _appData.settings.setCarouselMode(false);
    _appData.settings.setShowChannelBarOnMouseOver(false);
    _appData.settings.setPerspectiveMode(true);
    EXPECT_TRUE(find(_overlay.get(), "Viewpoint Pad")->isVisible()) << "there is no other way to it";
}

TEST_F(OverlayTest, BarsNeverOverlapAndTheWheelIsTheVolume)
{
    for (QSizeF const& size : {QSizeF(800, 480), QSizeF(320, 240), QSizeF(3840, 2160)}) {
        _layout.setSize(size);
        QRectF const top = _overlay->topCanvas()->geometry();
        QRectF const bottom = _overlay->bottomCanvas()->geometry();
        EXPECT_FALSE(top.intersects(bottom)) << size.width();
        for (GLControl const* const bar : {_overlay->topCanvas(), _overlay->bottomCanvas()})
            for (GLControl const* const control : bar->controls()) {
                if (!control->isVisible())
                    continue;
                EXPECT_LE(control->geometry().right(), bar->geometry().width() + 0.5) << qPrintable(control->name());
            }
    }
    _appData.settings.setMuted(true);
    QWheelEvent event({400, 200}, {400, 200}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    _layout.mouseWheel({400, 200}, &event);
    EXPECT_DOUBLE_EQ(_appData.settings.volume(), 0.95);
    EXPECT_FALSE(_appData.settings.muted());
}

TEST_F(OverlayTest, TheCarouselGoesThroughThousandsOfChannels)
{
    addChannels(3000);
    GLCarousel carousel(_appData);
    QSignalSpy const active(&carousel, &GLCarousel::activeChannelChanged);
    QSignalSpy const left(&carousel, &GLCarousel::left);
    ASSERT_TRUE(carousel.enter());
    EXPECT_EQ(carousel.activeChannel(), "id0");
    auto const key = [&](int code) {
        QKeyEvent event(QEvent::KeyPress, code, Qt::NoModifier);
        return carousel.keyPress(&event);
    };
    EXPECT_TRUE(key(Qt::Key_Left)) << "there is nothing more to the left";
    EXPECT_EQ(active.size(), 1);
    key(Qt::Key_Right), key(Qt::Key_PageDown);
    EXPECT_EQ(carousel.activeChannel(), "id6");
    key(Qt::Key_End);
    EXPECT_EQ(carousel.activeChannel(), "id2999");
    _appData.channelManager()->removeChannel(_appData.channelManager()->getChannelByRootId("id2999"));
    emit _appData.channelsUpdated();
    EXPECT_EQ(carousel.activeChannel(), "id2998") << "its neighbour, when it has gone";
    _appData.channelManager()->removeChannel(_appData.channelManager()->getChannelByRootId("id5"));
    emit _appData.channelsUpdated();
    EXPECT_EQ(carousel.activeChannel(), "id2998") << "the same, wherever it is now";
    key(Qt::Key_Escape);
    EXPECT_EQ(left.size(), 1);
    carousel.leave();
}

TEST(ChannelGridTest, TheGridFitsTheShapesOfThePictures)
{
    constexpr double wide = 16.0 / 9;
    constexpr double upright = 9.0 / 16;
    struct Case {
        QSize area;
        QList<double> shapes;
        int columns;
    };
    for (Case const& one :
         {Case{{1280, 720}, {wide}, 1}, Case{{1280, 720}, {wide, wide}, 2}, Case{{720, 1280}, {wide, wide}, 1},
          Case{{1280, 720}, {wide, wide, wide, wide}, 2}, Case{{1280, 400}, {wide, wide, wide}, 3},
          Case{{1280, 720}, {upright, upright, upright, upright}, 4}, Case{{1280, 720}, {0.0, 0.0, 0.0, 0.0}, 2},
          Case{{1280, 720}, {}, 0}, Case{{}, {wide, wide}, 2}})
        EXPECT_EQ(ChannelGrid::columns(one.area, one.shapes), one.columns)
            << one.area.width() << " " << one.shapes.size();
}

TEST_F(OverlayTest, TwoOpenChannelsChangePlaces)
{
    ChannelManager& channels = *_appData.channelManager();
    QList<Channel*> const three = addChannels(3);
    for (Channel* const channel : three)
        channels.openChannel(channel, false, false);
    channels.swapChannels("id0", "id2");
    EXPECT_THAT(channels.openChannels(), testing::ElementsAre(three.at(2), three.at(1), three.at(0)));
    channels.swapChannels("id0", "nobody");
    channels.swapChannels("id1", "id1");
    EXPECT_THAT(channels.openChannels(), testing::ElementsAre(three.at(2), three.at(1), three.at(0)));
    EXPECT_EQ(channels.activeChannel(), three.at(0)) << "the sound stays where it is";
}
