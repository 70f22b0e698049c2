#include "ClickCursors.h"

#include "ResourceImage.h"

#include <QPixmap>

namespace
{
QCursor cursorOf(char const* name)
{
    return QCursor(QPixmap::fromImage(ResourceImage::png(QStringLiteral(":/Resources/%1.png").arg(name))), -1, -1);
}
} // namespace

ClickCursors::ClickCursors()
    : play(cursorOf("PlayCursor")), open(cursorOf("OpenCursor")), close(cursorOf("CloseCursor"))
{
}
