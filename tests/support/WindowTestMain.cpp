#include "TestEnvironment.h"
#include "VirtualDisplay.h"

#include <QApplication>
#include <QSurfaceFormat>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    TestEnvironment const environment;
    VirtualDisplay const display;
    qputenv("QT_QPA_PLATFORM", "xcb");
    QSurfaceFormat format;
    format.setVersion(2, 1);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
