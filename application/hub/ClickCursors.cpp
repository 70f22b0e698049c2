#include "ClickCursors.h"

#include <QImageReader>
#include <QPixmap>

namespace
{
QCursor cursorOf(char const* name)
{
    QImageReader reader(QStringLiteral(":/Resources/%1.png").arg(name), "png");
    reader.setAutoDetectImageFormat(false); // Which would load the plugins of all formats there are.
    return QCursor(QPixmap::fromImageReader(&reader), -1, -1);
}
} // namespace

ClickCursors::ClickCursors()
    : play(cursorOf("PlayCursor")), open(cursorOf("OpenCursor")), close(cursorOf("CloseCursor"))
{
}
