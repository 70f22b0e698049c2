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
        palette.setColor(QPalette::Highlight, Qt::red);
        _ticker.setPalette(palette);
        _ticker.resize(200, _ticker.sizeHint().height());
        _ticker.show();
    }

    void step(int steps)
    {
        for (int i = 0; i < steps; ++i)
            _ticker.onTimer();
    }

    /// The columns that hold something other than the background, and of these, something reddish.
    struct Ink {
        QList<int> all;
        QList<int> red;
    };
    Ink ink()
    {
        QImage const image = _ticker.grab().toImage();
        Ink ink;
        for (int x = 0; x < image.width(); ++x) {
            bool drawn = false;
            bool red = false;
            for (int y = 0; y < image.height(); ++y) {
                QColor const colour = image.pixelColor(x, y);
                drawn |= colour != QColor(Qt::white);
                red |= colour.red() > colour.green() + 60;
            }
            if (drawn)
                ink.all.append(x);
            if (red)
                ink.red.append(x);
        }
        return ink;
    }

    Ticker _ticker;
};

} // namespace

TEST_F(TickerTest, ATextEntersAtTheRightAndLeavesAtTheLeft)
{
    _ticker.addText("  \n ");
    _ticker.addText("HHHH\nHHHH");
    EXPECT_TRUE(ink().all.isEmpty());
    step(10);
    EXPECT_NEAR(ink().all.constFirst(), 190, 3);
    step(100);
    EXPECT_NEAR(ink().all.constFirst(), 90, 3);
    step(85);
    EXPECT_NEAR(ink().all.constFirst(), 5, 3);
    step(1000);
    EXPECT_TRUE(ink().all.isEmpty());
    _ticker.addText("H");
    step(10);
    EXPECT_NEAR(ink().all.constFirst(), 190, 3);
}

TEST_F(TickerTest, TheHighlightStaysWithItsText)
{
    _ticker.addText("HH");
    _ticker.addText("HH");
    _ticker.setHighlight(1);
    step(198);
    Ink const both = ink();
    ASSERT_FALSE(both.red.isEmpty());
    EXPECT_GT(both.red.constFirst(), both.all.constFirst() + 10);
    int const second = both.red.constFirst();
    step(second - 5);
    Ink const one = ink();
    EXPECT_FALSE(one.red.isEmpty());
    EXPECT_NEAR(one.all.constFirst(), one.red.constFirst(), 1);
    EXPECT_NEAR(one.red.constFirst(), 5, 3);
}
