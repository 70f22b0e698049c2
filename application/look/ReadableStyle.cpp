#include "ReadableStyle.h"

#include "Contrast.h"
#include "Icons.h"

#include <QPainter>
#include <QStyleOption>

namespace
{

constexpr double ofDisabled = 2.5; ///< It is quiet on purpose, and read all the same.
constexpr double ofDisabledParts = 1.7;

/// The colour as it is seen: some palettes have them translucent.
QColor seen(QColor const& colour, QColor const& ground)
{
    return Contrast::mixed(colour, ground, colour.alphaF());
}

void makePlain(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole role,
               QPalette::ColorRole groundRole)
{
    bool const isDisabled = group == QPalette::Disabled;
    double const least = isDisabled ? ofDisabled : Contrast::ofText;
    QColor const ground = palette.color(group, groundRole);
    if (Contrast::between(seen(palette.color(group, role), ground), ground) >= least)
        return;
    constexpr double leastShare = 0.3;
    QColor const text = palette.color(QPalette::Active, QPalette::WindowText);
    palette.setColor(group, role, Contrast::reaching(least, text, ground, leastShare));
}

/// As little of the text's colour in another one as lets that stand out from the ground: it keeps its hue.
QColor plainer(QColor const& colour, double least, QColor const& text, QColor const& ground)
{
    constexpr int steps = 10;
    QColor nearer = colour;
    for (int step = 1; step <= steps && Contrast::between(nearer, ground) < least; ++step)
        nearer = Contrast::mixed(text, colour, static_cast<double>(step) / steps);
    return nearer;
}

void makePlainLink(QPalette& palette, QPalette::ColorGroup group, QPalette::ColorRole role)
{
    palette.setColor(group, role,
                     plainer(palette.color(group, role), Contrast::ofText, palette.color(group, QPalette::WindowText),
                             palette.color(group, QPalette::Window)));
}

/// What is chosen stands on a ground of its own.
void makePlainChoice(QPalette& palette, QPalette::ColorGroup group)
{
    QColor const text = palette.color(group, QPalette::HighlightedText);
    bool const isLightText = Contrast::between(text, Qt::black) > Contrast::between(text, Qt::white);
    QColor ground = palette.color(group, QPalette::Highlight);
    constexpr int steps = 20;
    for (int step = 0; step < steps && Contrast::between(text, ground) < Contrast::ofText; ++step)
        ground = Contrast::mixed(isLightText ? Qt::black : Qt::white, ground, 1.0 / steps);
    if (ground != palette.color(group, QPalette::Highlight))
        palette.setColor(group, QPalette::Highlight, ground);
}

} // namespace

void ReadableStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    for (QPalette::ColorGroup const group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        makePlain(palette, group, QPalette::WindowText, QPalette::Window);
        makePlain(palette, group, QPalette::Text, QPalette::Base);
        makePlain(palette, group, QPalette::ButtonText, QPalette::Button);
        makePlain(palette, group, QPalette::PlaceholderText, QPalette::Base);
        if (group == QPalette::Disabled)
            continue;
        makePlainLink(palette, group, QPalette::Link);
        makePlainLink(palette, group, QPalette::LinkVisited);
        makePlainChoice(palette, group);
    }
}

/// A second print of disabled words in light, one pixel below them, blurs them on a dark ground.
int ReadableStyle::styleHint(StyleHint hint, QStyleOption const* option, QWidget const* widget,
                             QStyleHintReturn* data) const
{
    return hint == SH_EtchDisabledText ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
}

/// Those that every window has are the program's own: to look for a desktop's takes some ten milliseconds at the
/// start.
QIcon ReadableStyle::standardIcon(StandardPixmap icon, QStyleOption const* option, QWidget const* widget) const
{
    switch (icon) {
    case SP_LineEditClearButton:
        return Icons::icon(Icon::Close);
    case SP_ToolBarHorizontalExtensionButton:
        return Icons::icon(Icon::Menu);
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

/// Other styles than Qt's own have their own ways on dark grounds.
bool ReadableStyle::wantsOutlines(QPalette const& palette) const
{
    constexpr int darkest = 100; // Of 255: above it, what is darker than the ground is seen.
    return palette.color(QPalette::Window).lightness() < darkest &&
           baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0;
}

void ReadableStyle::outline(QStyleOption const* option, QRect const& rect, QPainter* painter, Outline kind) const
{
    constexpr double radius = 2.0;
    constexpr double leastShare = 0.2;
    QPalette const& palette = option->palette;
    bool const isEnabled = option->state & State_Enabled;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    QColor const text = palette.color(QPalette::Active, QPalette::WindowText);
    QColor const ground = palette.color(QPalette::Window);
    if (kind == Outline::Focus)
        painter->setPen(plainer(palette.color(QPalette::Highlight), Contrast::ofParts, text, ground));
    else
        painter->setPen(
            Contrast::reaching(isEnabled ? Contrast::ofParts : ofDisabledParts, text, ground, leastShare));
    QRectF const line = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (kind == Outline::Round)
        painter->drawEllipse(line);
    else
        painter->drawRoundedRect(line, radius, radius);
    painter->restore();
}

void ReadableStyle::drawPrimitive(PrimitiveElement element, QStyleOption const* option, QPainter* painter,
                                  QWidget const* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (!wantsOutlines(option->palette))
        return;
    bool const hasFocus = option->state & State_HasFocus;
    if (hasFocus && element == PE_FrameLineEdit)
        return outline(option, option->rect, painter, Outline::Focus);
    if (hasFocus && (option->state & State_KeyboardFocusChange))
        return; // The style marks it.
    switch (element) {
    case PE_PanelButtonCommand: {
        auto const* const button = qstyleoption_cast<QStyleOptionButton const*>(option);
        bool const isFlat = button && (button->features & QStyleOptionButton::Flat);
        bool const isMarked =
            button && (button->features & QStyleOptionButton::DefaultButton) && (option->state & State_Enabled);
        if (!isFlat && !isMarked)
            outline(option, option->rect.adjusted(0, 0, 0, -1), painter);
        break;
    }
    case PE_IndicatorRadioButton:
        outline(option, option->rect, painter, Outline::Round);
        break;
    case PE_FrameLineEdit:
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
    case PE_Frame:
    case PE_FrameMenu:
        outline(option, option->rect, painter);
        break;
    default:
        break;
    }
}

void ReadableStyle::drawControl(ControlElement element, QStyleOption const* option, QPainter* painter,
                                QWidget const* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    bool const isBox = element == CE_ProgressBarGroove || element == CE_TabBarTabShape;
    if (isBox && wantsOutlines(option->palette))
        outline(option, option->rect, painter);
}

void ReadableStyle::drawComplexControl(ComplexControl control, QStyleOptionComplex const* option, QPainter* painter,
                                       QWidget const* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (!wantsOutlines(option->palette))
        return;
    if (control == CC_SpinBox && !(option->state & State_HasFocus))
        outline(option, option->rect, painter);
    else if (control == CC_Slider)
        outline(option, subControlRect(control, option, SC_SliderHandle, widget), painter);
    else if (control == CC_ScrollBar)
        outline(option, subControlRect(control, option, SC_ScrollBarSlider, widget), painter);
}
