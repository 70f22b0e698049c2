#include "SkinPalette.h"

QPalette skinPalette()
{
    QColor const ground(20, 24, 44);
    QColor const field(13, 16, 31);
    QColor const raised(37, 44, 80);
    QColor const text(232, 230, 223);
    QColor const quiet(150, 154, 176);
    QPalette palette;
    auto const set = [&palette](std::initializer_list<QPalette::ColorRole> roles, QColor const& colour) {
        for (QPalette::ColorRole const role : roles)
            palette.setColor(role, colour);
    };
    set({QPalette::Window}, ground);
    set({QPalette::Base}, field);
    set({QPalette::AlternateBase}, QColor(24, 29, 54));
    set({QPalette::Button, QPalette::ToolTipBase}, raised);
    set({QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}, text);
    set({QPalette::BrightText}, Qt::white);
    set({QPalette::PlaceholderText}, quiet);
    set({QPalette::Highlight}, QColor(62, 78, 150));
    set({QPalette::HighlightedText}, Qt::white);
    set({QPalette::Link}, QColor(150, 190, 255));
    set({QPalette::LinkVisited}, QColor(196, 176, 255));
    set({QPalette::Light}, QColor(58, 66, 110));
    set({QPalette::Midlight}, QColor(48, 55, 95));
    set({QPalette::Mid}, QColor(43, 51, 88));
    set({QPalette::Dark}, QColor(10, 12, 24));
    set({QPalette::Shadow}, Qt::black);
    for (QPalette::ColorRole const role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, quiet);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, raised);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, quiet);
    return palette;
}
