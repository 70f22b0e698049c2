#include "ClickCursors.h"

#include <QImage>
#include <QPixmap>

namespace
{
QCursor cursorOf(char const* name)
{
    return QCursor(QPixmap::fromImage(QImage(QStringLiteral(":/Resources/%1.png").arg(name))), -1, -1);
}
} // namespace

ClickCursors::ClickCursors()
    : play(cursorOf("PlayCursor")), open(cursorOf("OpenCursor")), close(cursorOf("CloseCursor"))
{
}
