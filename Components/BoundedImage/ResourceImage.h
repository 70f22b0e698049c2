#pragma once

#include <QImage>

class QString;

/// Pictures among the program's own resources. Any thread.
class ResourceImage
{
public:
    /// A PNG, taken for one without looking: Qt loads the plugins of all formats there are to find out which it is,
    /// some ten milliseconds. Null when there is none.
    static QImage png(QString const& path);
};
