#include "TestEnvironment.h"

#include <QApplication>
#include <QSurfaceFormat>

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <link.h>
#include <string>
#include <vector>

namespace
{

/// Keeps every library that is loaded now. An OpenGL driver that is unloaded at the end takes with it the only
/// pointers to what it never frees, which then looks like a leak.
void keepLibraries()
{
    std::vector<std::string> names;
    dl_iterate_phdr(
        [](dl_phdr_info* library, size_t, void* list) {
            static_cast<std::vector<std::string>*>(list)->emplace_back(library->dlpi_name);
            return 0;
        },
        &names);
    for (std::string const& name : names)
        dlopen(name.c_str(), RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

} // namespace

/// Without a display, unless QT_QPA_PLATFORM names another platform.
int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    if (GTEST_FLAG_GET(list_tests))
        return RUN_ALL_TESTS();
    TestEnvironment const environment;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QSurfaceFormat format;
    format.setVersion(2, 1);
    QSurfaceFormat::setDefaultFormat(format);
    QApplication application(argc, argv);
    int const result = RUN_ALL_TESTS();
    keepLibraries();
    return result;
}
