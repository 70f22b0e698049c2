#include "BufferLatteVisualiser.h"
#include "FakeLatteClient.h"
#include "LatteVisualiserRegistry.h"

#include <gmock/gmock.h>

namespace
{

/// How high the surface is filled, at a column of the picture.
int height(QWidget& widget, int x)
{
    QImage const image = widget.grab().toImage();
    QColor const empty = widget.palette().color(QPalette::Base);
    int height = 0;
    for (int y = image.height() - 2; y > 0 && image.pixelColor(x, y) != empty; --y)
        ++height;
    return height;
}

} // namespace

TEST(BufferLatteVisualiser, ShowsTheLastMinuteWhileStartedAndAFrameOtherwise)
{
    FakeLatteClient client(Uri("mms://host/a")); // Of 1000 bytes.
    LatteVisualiserRegistry registry;
    BufferLatteVisualiserFactory factory;
    registry.registerLatteVisualiserFactory(UriScheme("mms"), &factory);
    std::unique_ptr<LatteVisualiser> const made(registry.createLatteVisualiser(&client));
    auto& visualiser = dynamic_cast<BufferLatteVisualiser&>(*made);
    visualiser.resize(602, 102); // Ten columns a second.
    client.deliver(QByteArray(500, 'x'));
    EXPECT_EQ(height(visualiser, 600), 0);
    visualiser.start();
    EXPECT_NEAR(height(visualiser, 600), 50, 1);
    EXPECT_EQ(height(visualiser, 586), 0); // Not yet a history.
    client.deliver(QByteArray(700, 'x'));  // More than the size that is wanted is full.
    for (int i = 0; i < 30; ++i)
        visualiser.sample();
    EXPECT_NEAR(height(visualiser, 600), 100, 1);
    EXPECT_NEAR(height(visualiser, 293), 50, 2);
    for (int i = 0; i < 45; ++i)
        visualiser.sample();
    EXPECT_NEAR(height(visualiser, 300), 100, 1); // What was before has gone out at the left.
    visualiser.stop();
    EXPECT_EQ(height(visualiser, 600), 0);
}
