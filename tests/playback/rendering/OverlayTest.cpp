#include "GLControlLayout.h"
#include "GLMovieOverlay.h"
#include "GLTest.h"
#include "GLTextArea.h"

class OverlayTest : public GLTest
{
};

TEST_F(OverlayTest, ControlsAreDrawnInOrderAtTheirPlacesWithTheirOpacity)
{
    QImage red(40, 40, QImage::Format_ARGB32);
    red.fill(Qt::red);
    QImage green(33, 17, QImage::Format_ARGB32);
    green.fill(Qt::green);
    GLTexture redTexture;
    GLTexture greenTexture;
    ASSERT_TRUE(redTexture.create(red));
    ASSERT_TRUE(greenTexture.create(green));

    GLControl bar("bar");
    bar.setGeometry(QRectF(10, 20, 40, 40));
    bar.setTexture(&redTexture);
    GLControl button("button");
    button.setGeometry(QRectF(5, 5, 33, 17));
    button.setTexture(&greenTexture);
    bar.addControl(&button);
    GLControlLayout layout;
    layout.addControl(&bar);

    beginSurface(100, 80);
    layout.render(1.0);
    QImage image = surface();
    EXPECT_EQ(image.pixelColor(10, 20), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(49, 59), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(50, 60), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(15, 25), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(47, 41), QColor(Qt::green));
    EXPECT_EQ(image.pixelColor(48, 42), QColor(Qt::red));

    beginSurface(100, 80);
    bar.setOpacity(0.5);
    button.setOpacity(0.5);
    layout.render(1.0);
    image = surface();
    EXPECT_NEAR(image.pixelColor(12, 22).red(), 128, 2);
    EXPECT_NEAR(image.pixelColor(20, 30).red(), 96, 2);
    EXPECT_NEAR(image.pixelColor(20, 30).green(), 64, 2);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(OverlayTest, NameAndMessageLieWithinThePicture)
{
    GLMovieOverlay overlay;
    overlay.setName("A channel with rather a long name");
    overlay.setMessage("Stream unavailable\nClick here to reconnect");
    beginSurface(400, 300);
    overlay.draw(QRectF(100, 50, 200, 150), 1.0);
    QImage const image = surface();
    QRect lit;
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 400; ++x)
            if (image.pixelColor(x, y).lightness() > 200)
                lit |= QRect(x, y, 1, 1);
    EXPECT_TRUE(QRect(100, 50, 200, 150).contains(lit));
    EXPECT_NEAR(lit.center().x(), 200, 6);
    EXPECT_LT(lit.top(), 90);
    EXPECT_GT(lit.bottom(), 125);
}

TEST_F(OverlayTest, ATextureThatCannotBeMadeLeavesNone)
{
    GLTexture texture;
    EXPECT_TRUE(texture.create(3, 5));
    EXPECT_FALSE(texture.create(QImage()));
    EXPECT_FALSE(texture.created());
    EXPECT_FALSE(texture.create(0, -3));
    EXPECT_FALSE(texture.create(1 << 20, 1));
}
