#include "GLTextArea.h"
#include "GLTexture.h"

#include <QFontMetricsF>

#include <gmock/gmock.h>

TEST(GLTexture, TextImagePutsOutlinedTextWhereItIsAligned)
{
    QFont font;
    font.setPixelSize(20);
    int dark = 0;
    int light = 0;
    auto const bounds = [&](Qt::Alignment alignment) {
        QImage const image = GLTexture::textImage(QSize(300, 100), 4.0, 1.0, 0.0, Qt::white, Qt::transparent, font,
                                                  "One\nTwo", alignment);
        QRect rectangle;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (QColor const colour = image.pixelColor(x, y); colour.alpha() > 128) {
                    rectangle |= QRect(x, y, 1, 1);
                    dark += colour.lightness() < 60;
                    light += colour.lightness() > 200;
                }
        return rectangle;
    };
    QRect const first = bounds(Qt::AlignLeft | Qt::AlignTop);
    EXPECT_TRUE(first.left() < 20 && first.top() < 20);
    QRect const last = bounds(Qt::AlignRight | Qt::AlignBottom);
    EXPECT_TRUE(last.right() > 280 && last.bottom() > 80);
    EXPECT_NEAR(bounds(Qt::AlignCenter).center().x(), 150, 3);
    EXPECT_NEAR(bounds(Qt::AlignCenter).center().y(), 50, 6);
    EXPECT_GT(dark, 50) << "so that it can be read on white";
    EXPECT_GT(light, 50);
}

TEST(GLTextArea, WrapsAtWordsAndInsideLongOnes)
{
    QFont font;
    font.setPixelSize(20);
    QFontMetricsF const metrics(font);
    double const width = metrics.horizontalAdvance("some words") + 1.0;
    EXPECT_EQ(GLTextArea::wrapText("some words some words", font, width), (QStringList{"some words", "some words"}));
    EXPECT_EQ(GLTextArea::wrapText("a\n\nb", font, width), (QStringList{"a", "", "b"}));
    QString const longWord(60, 'm');
    QStringList const pieces = GLTextArea::wrapText(longWord, font, width);
    EXPECT_EQ(pieces.join(""), longWord);
    for (QString const& piece : pieces)
        EXPECT_LE(metrics.horizontalAdvance(piece), width);
    EXPECT_EQ(GLTextArea::wrapText("abc", font, -5.0), (QStringList{"a", "b", "c"}));
}

TEST(GLTextArea, GrowsWithItsText)
{
    GLTextArea area("text");
    EXPECT_TRUE(area.sizeForWidth(200.0).isEmpty());
    area.setText("Acquiring Channel...");
    QSizeF const one = area.sizeForWidth(400.0);
    EXPECT_EQ(area.sizeForWidth(one.width()), one) << "as wide as it wants, it needs no second line";
    EXPECT_LT(one.width(), 400.0);
    area.setText("Acquiring Channel...\nPlease wait");
    EXPECT_GT(area.sizeForWidth(400.0).height(), one.height() * 1.4);
    EXPECT_LE(area.sizeForWidth(60.0).width(), 60.0);

    // In the size that it has asked for it needs no more lines, at whatever scale.
    for (double const scale : {1.0, 1.25, 1.5, 2.0})
        for (char const* const text : {"Could not connect to server\nClick here to reconnect", "Reconnecting...",
                                       "AVAVAVAV fifi ffi To. Te, LT", "iiii lllll .....", "Wagen, Typ \"A\""}) {
            area.recalcLayout(scale);
            area.setText(text);
            QSizeF const size = area.sizeForWidth(512.0);
            EXPECT_EQ(area.sizeForWidth(size.width()).height(), size.height()) << text << ' ' << scale;
        }
}
