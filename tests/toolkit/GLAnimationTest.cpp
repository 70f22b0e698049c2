#include "GLAnimation.h"

#include <QList>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace
{

class GLAnimationTest : public testing::Test
{
protected:
    /// Lets time pass and returns the value of then.
    double after(qint64 milliseconds)
    {
        _now += milliseconds;
        _animation.update();
        return _animation.value();
    }

    qint64 _now = 5000;
    GLAnimation _animation{[this] { return _now; }};
    QSignalSpy _changes{&_animation, &GLAnimation::valueChanged};
    QSignalSpy _ends{&_animation, &GLAnimation::completed};
};

} // namespace

TEST_F(GLAnimationTest, MovesEvenlyAndEndsOnTheBound)
{
    _animation.start(1.0, 3.0, 100);
    EXPECT_DOUBLE_EQ(_animation.value(), 1.0);
    EXPECT_DOUBLE_EQ(after(75), 2.5);
    EXPECT_TRUE(_ends.isEmpty());
    EXPECT_DOUBLE_EQ(after(1000), 3.0);
    EXPECT_FALSE(_animation.isRunning());
    after(10);
    EXPECT_EQ(_changes.count(), 3);
    EXPECT_EQ(_ends.count(), 1);
    _animation.start(0.0, 0.7, 0);
    EXPECT_DOUBLE_EQ(_animation.value(), 0.7) << "without a duration it is there at once";
    EXPECT_EQ(_ends.count(), 2);
}

TEST_F(GLAnimationTest, TurnsAroundWhereItIs)
{
    _animation.start(0.0, 1.0, 100);
    after(40);
    _animation.startTo(0.0, 100);
    EXPECT_DOUBLE_EQ(after(50), 0.2);
    _animation.stop();
    EXPECT_DOUBLE_EQ(after(50), 0.2);
    EXPECT_TRUE(_ends.isEmpty());
}

TEST(GLAnimation, RunsByItselfWithAnEventLoop)
{
    GLAnimation animation;
    QSignalSpy ends(&animation, &GLAnimation::completed);
    animation.start(0.0, 1.0, 1);
    EXPECT_TRUE(ends.count() == 1 || ends.wait());
    EXPECT_DOUBLE_EQ(animation.value(), 1.0);
}
