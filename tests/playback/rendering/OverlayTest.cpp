#include "GLControl.h"
#include "GLControlLayout.h"
#include "GLTest.h"
#include "GLTexture.h"

using OverlayTest = GLTest;

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
    bar.setOpacity(0.5);
    layout.render(1.0);
    QImage const image = surface();
    EXPECT_EQ(image.pixelColor(50, 60), QColor(Qt::black));
    EXPECT_NEAR(image.pixelColor(49, 59).red(), 128, 2);
    EXPECT_NEAR(image.pixelColor(15, 25).red(), 64, 2);
    EXPECT_NEAR(image.pixelColor(47, 41).green(), 128, 2);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}
