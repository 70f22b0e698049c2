#include "BufferLatteVisualiser.h"
#include "FakeLatteClient.h"
#include "LatteVisualiserRegistry.h"

#include <QCoreApplication>
#include <QEvent>

#include <gmock/gmock.h>

TEST(LatteVisualiserRegistry, MakesByScheme)
{
    LatteVisualiserRegistry registry;
    BufferLatteVisualiserFactory factory;
    registry.registerLatteVisualiserFactory(UriScheme("mms"), &factory);
    auto client = std::make_unique<FakeLatteClient>(Uri("mms://host/a"));
    FakeLatteClient const other(Uri("rtsp://host/a"));
    EXPECT_EQ(registry.createLatteVisualiser(nullptr), nullptr);
    EXPECT_EQ(registry.createLatteVisualiser(&other), nullptr);
    QPointer<LatteVisualiser> const visualiser = registry.createLatteVisualiser(client.get());
    ASSERT_TRUE(visualiser);
    EXPECT_EQ(visualiser->latteClient(), client.get());
    client.reset();
    EXPECT_EQ(visualiser->latteClient(), nullptr);
    registry.disposeLatteVisualiser(nullptr);
    registry.disposeLatteVisualiser(visualiser);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(visualiser);
}

TEST(LatteVisualiser, ShowsTheFillWhileStartedAndAFrameOtherwise)
{
    auto client = std::make_unique<FakeLatteClient>(Uri("mms://host/a"));
    client->deliver(QByteArray(500, 'x')); // Of 1000.
    BufferLatteVisualiser visualiser(client.get());
    visualiser.resize(102, 12);
    QColor const full = visualiser.palette().color(QPalette::Highlight);
    auto const columns = [&] {
        QImage const image = visualiser.grab().toImage();
        int count = 0;
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, image.height() / 2) == full;
        return count;
    };
    EXPECT_EQ(columns(), 0);
    visualiser.start();
    EXPECT_EQ(columns(), 50);
    visualiser.resize(0, 0);
    visualiser.grab();
    visualiser.resize(102, 12);
    visualiser.stop();
    EXPECT_EQ(columns(), 0);
    visualiser.start();
    client.reset();
    EXPECT_EQ(columns(), 0);
    EXPECT_EQ(visualiser.visualiseStopped(QSize(7, 5)).size(), QSize(7, 5));
}
