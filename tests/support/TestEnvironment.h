#pragma once

#include <QTemporaryDir>

/// Gives a test program a home directory of its own, so that it never touches the user's settings or logs.
/// Made before the application object.
class TestEnvironment
{
public:
    TestEnvironment();

private:
    QTemporaryDir _home;
};
