#include "Look.h"

#include "DesktopMotion.h"

#include <QApplication>
#include <QPointer>
#include <QStyle>

bool Look::reducedMotion()
{
    if (!qApp)
        return false;
    static QPointer<DesktopMotion> desktop; // Asked once for each application.
    if (!desktop)
        desktop = new DesktopMotion(qApp);
    if (std::optional<bool> const said = desktop->isReduced())
        return *said;
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) <= 0;
}
