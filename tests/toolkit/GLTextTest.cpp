#include "GLTextArea.h"
#include "GLTexture.h"

#include <QFontMetricsF>
#include <QRegion>

#include <gmock/gmock.h>

TEST(GLTexture, NearestPowerOfTwoHoldsTheNumber)
{
    std::pair<int, int> const cases[] = {{-5, 1},
                                         {0, 1},
                                         {1, 1},
                                         {2, 2},
                                         {3, 4},
                                         {511, 512},
                                         {512, 512},
                                         {513, 1024},
                                         {1280, 2048},
                                         {(1 << 30) - 1, 1 << 30},
                                         {0x7fffffff, 1 << 30}};
    for (auto const& [number, power] : cases)
        EXPECT_EQ(GLTexture::nearestPowerOfTwo(number), power) << number;
}

TEST(GLTexture, TextImagePutsTextWhereItIsAligned)
{
    QFont font;
    font.setPixelSize(20);
    auto const bounds = [&](Qt::Alignment alignment) {
        QImage const image = GLTexture::textImage(QSize(300, 100), 4.0, 1.0, 0.0, Qt::white, Qt::transparent, font,
                                                  "One\nTwo", alignment);
        QRect rectangle;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).alpha() > 128)
                    rectangle |= QRect(x, y, 1, 1);
        return rectangle;
    };
    EXPECT_LT(bounds(Qt::AlignLeft | Qt::AlignTop).left(), 20);
    EXPECT_LT(bounds(Qt::AlignLeft | Qt::AlignTop).top(), 20);
    EXPECT_GT(bounds(Qt::AlignRight | Qt::AlignBottom).right(), 280);
    EXPECT_GT(bounds(Qt::AlignRight | Qt::AlignBottom).bottom(), 80);
    EXPECT_NEAR(bounds(Qt::AlignCenter).center().x(), 150, 3);
    EXPECT_NEAR(bounds(Qt::AlignCenter).center().y(), 50, 6);
}

TEST(GLTexture, TextCanBeReadOnWhiteByItsOutline)
{
    QFont font;
    font.setPixelSize(30);
    QImage const image = GLTexture::textImage(QSize(100, 50), 2.0, 2.0, 0.0, Qt::white, Qt::transparent, font, "ll");
    int dark = 0;
    int light = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            QColor const colour = image.pixelColor(x, y);
            dark += colour.alpha() > 150 && colour.lightness() < 60;
            light += colour.alpha() > 150 && colour.lightness() > 200;
        }
    EXPECT_GT(dark, 50);
    EXPECT_GT(light, 50);
}

TEST(GLTextArea, WrapsAtWordsAndInsideLongOnes)
{
    QFont font;
    font.setPixelSize(20);
    QFontMetricsF const metrics(font);
    double const width = metrics.horizontalAdvance("some words");
    EXPECT_EQ(GLTextArea::wrapText("some words some words", font, width + 1),
              (QStringList{"some words", "some words"}));
    EXPECT_EQ(GLTextArea::wrapText("a\n\nb", font, width), (QStringList{"a", "", "b"}));
    EXPECT_EQ(GLTextArea::wrapText("", font, width), QStringList{""});

    QString const longWord(60, 'm');
    QStringList const pieces = GLTextArea::wrapText(longWord, font, width);
    EXPECT_GT(pieces.size(), 3);
    EXPECT_EQ(pieces.join(""), longWord);
    for (QString const& piece : pieces)
        EXPECT_LE(metrics.horizontalAdvance(piece), width + 1.0);
    EXPECT_EQ(GLTextArea::wrapText("abc", font, -5.0), (QStringList{"a", "b", "c"}));
}

TEST(GLTextArea, GrowsWithItsText)
{
    GLTextArea area("text");
    EXPECT_TRUE(area.sizeForWidth(200.0).isEmpty());
    area.setText("Acquiring Channel...");
    QSizeF const one = area.sizeForWidth(400.0);
    EXPECT_LT(one.width(), 400.0);
    area.setText("Acquiring Channel...\nPlease wait");
    EXPECT_GT(area.sizeForWidth(400.0).height(), one.height() * 1.4);
    EXPECT_LE(area.sizeForWidth(60.0).width(), 60.0);
}
