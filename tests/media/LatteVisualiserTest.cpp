#include "BufferLatteVisualiser.h"
#include "FakeLatteClient.h"
#include "LatteVisualiserRegistry.h"

#include <gmock/gmock.h>

TEST(LatteVisualiserRegistry, MakesByScheme)
{
    LatteVisualiserRegistry registry;
    BufferLatteVisualiserFactory factory;
    registry.registerLatteVisualiserFactory(UriScheme("mms"), &factory);
    FakeLatteClient const other(Uri("rtsp://host/a"));
    EXPECT_EQ(registry.createLatteVisualiser(&other), nullptr);
    FakeLatteClient client(Uri("mms://host/a"));
    LatteVisualiser* const visualiser = registry.createLatteVisualiser(&client);
    ASSERT_TRUE(visualiser);
    EXPECT_EQ(visualiser->latteClient(), &client);
    registry.disposeLatteVisualiser(visualiser);
}

namespace
{

/// How high the surface is filled, in each column of the picture.
QList<int> heights(QWidget& widget)
{
    QImage const image = widget.grab().toImage();
    QColor const empty = widget.palette().color(QPalette::Base);
    QList<int> result;
    for (int x = 1; x < image.width() - 1; ++x) {
        int height = 0;
        for (int y = image.height() - 2; y > 0 && image.pixelColor(x, y) != empty; --y)
            ++height;
        result.append(height);
    }
    return result;
}

} // namespace

TEST(BufferLatteVisualiser, ShowsTheLastMinuteWhileStartedAndAFrameOtherwise)
{
    auto client = std::make_unique<FakeLatteClient>(Uri("mms://host/a")); // Of 1000 bytes.
    BufferLatteVisualiser visualiser(client.get());
    QFont large;
    large.setPixelSize(200); // The figures do not fit, and are left out.
    visualiser.setFont(large);
    visualiser.resize(602, 102); // Ten columns a second.
    QList<int> const nothing(600, 0);
    EXPECT_EQ(heights(visualiser), nothing);

    client->deliver(QByteArray(500, 'x'));
    visualiser.start();
    EXPECT_NEAR(heights(visualiser).last(), 50, 1);
    EXPECT_EQ(heights(visualiser).at(585), 0); // Not yet a history.
    client->deliver(QByteArray(700, 'x'));     // More than the size that is wanted is full.
    for (int i = 0; i < 30; ++i)
        visualiser.sample();
    EXPECT_NEAR(heights(visualiser).last(), 100, 1);
    EXPECT_NEAR(heights(visualiser).at(292), 50, 2);
    client->clearBuffer();
    for (int i = 0; i < 45; ++i)
        visualiser.sample();
    EXPECT_LE(heights(visualiser).last(), 1);
    EXPECT_NEAR(heights(visualiser).first(), 100, 1); // What was before has gone out at the left.

    visualiser.stop();
    EXPECT_EQ(heights(visualiser), nothing);
    visualiser.start();
    client.reset();
    visualiser.sample();
    EXPECT_EQ(heights(visualiser), nothing);
    EXPECT_EQ(visualiser.visualise(QSize(1, 1)).size(), QSize(1, 1));
}
