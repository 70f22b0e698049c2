#include "Ticker.h"

#include <QImage>

#include <gmock/gmock.h>

TEST(Ticker, ATextEntersAtTheRightAndLeavesAtTheLeft)
{
    Ticker ticker;
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::black);
    ticker.setPalette(palette);
    ticker.resize(200, ticker.sizeHint().height());
    ticker.show();
    auto const left = [&] { // The first column that holds something of the text, or -1.
        QImage const image = ticker.grab().toImage();
        for (int x = 0; x < image.width(); ++x)
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y) != QColor(Qt::white))
                    return x;
        return -1;
    };
    ticker.addText("  \n ");
    ticker.addText("HHHH\nHHHH");
    EXPECT_EQ(left(), -1);
    for (auto const& [steps, column] : {std::pair{10, 190}, {100, 90}, {1000, -1}}) {
        for (int i = 0; i < steps; ++i)
            ticker.onTimer();
        EXPECT_NEAR(left(), column, column < 0 ? 0 : 3);
    }
}
