#include "Ticker.h"

#include <QImage>

#include <gmock/gmock.h>

namespace
{

class TickerTest : public testing::Test
{
protected:
    TickerTest()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Qt::white);
        palette.setColor(QPalette::WindowText, Qt::black);
        _ticker.setPalette(palette);
        _ticker.resize(200, _ticker.sizeHint().height());
        _ticker.show();
    }

    void step(int steps)
    {
        for (int i = 0; i < steps; ++i)
            _ticker.onTimer();
    }

    /// The first column that holds something of the text, or -1.
    int left()
    {
        QImage const image = _ticker.grab().toImage();
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) != QColor(Qt::white))
                    return x;
        return -1;
    }

    Ticker _ticker;
};

} // namespace

TEST_F(TickerTest, ATextEntersAtTheRightAndLeavesAtTheLeft)
{
    _ticker.addText("  \n ");
    _ticker.addText("HHHH\nHHHH");
    EXPECT_EQ(left(), -1);
    step(10);
    EXPECT_NEAR(left(), 190, 3);
    step(100);
    EXPECT_NEAR(left(), 90, 3);
    step(1000);
    EXPECT_EQ(left(), -1);
}
