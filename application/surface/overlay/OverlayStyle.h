#pragma once

#include "GLButtonControl.h"
#include "GLControlStyle.h"
#include "Icons.h"

/// What the overlay's controls look like. Main thread only.
namespace OverlayStyle
{

GLControlStyle style();

/// Of the texts that stand out.
QFont titleFont();

GLButtonControl::IconPainter icon(Icon icon);

} // namespace OverlayStyle
