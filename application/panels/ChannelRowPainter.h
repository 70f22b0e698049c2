#pragma once

#include "ChannelLogo.h"
#include "ChannelRowState.h"
#include "Icons.h"

#include <QFont>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QStyleOptionViewItem>

class LogoPixmaps;
class QPainter;

/// Paints one cell of a row that is a channel, in the palette of its view and in its direction. Texts are plain, of
/// one line, and elided where they do not fit. Main thread only.
class ChannelRowPainter
{
public:
    /// What the cell of a channel shows.
    struct Channel {
        ChannelLogo logo;
        Icon standIn = Icon::Television; ///< Where there is no logo.
        QString title;
        QString subtitle;
        QString aside;      ///< Short: at the end of the second line, where there is room.
        bool isDim = false; ///< It cannot be watched.
        ChannelRowState state = ChannelRowState::Closed; ///< In front of the second line.
    };

    /// Paints the ground of the cell. The painter is borrowed.
    ChannelRowPainter(QPainter& painter, QStyleOptionViewItem const& option);

    /// The height of every row: two lines of text, of two sizes.
    static int rowHeight(QStyleOptionViewItem const& option);
    /// How wide the cell of a channel has to be for a title that can be read.
    static int leastWidth(QStyleOptionViewItem const& option);
    /// How wide a state of that text is painted.
    static int stateWidth(QFont const& font, QString const& text);
    /// The widest of all of them, in whatever language.
    static int widestState(QFont const& font);
    /// Where an icon at the end of a cell is.
    static QRect iconAtEnd(QStyleOptionViewItem const& option);

    void paintState(ChannelRowState state) { paintStateIn(_option.rect, state); }
    void paintText(QString const& text);
    /// In the middle of the cell, or at its end.
    void paintIcon(Icon icon, bool isDim, bool atEnd = false);
    /// The icon at the end has its place if there is to be one.
    void paintChannel(Channel const& channel, LogoPixmaps& logos, bool hasIconAtEnd);

private:
    static QFont smallFont(QFont const& font);
    static QFont titleFont(QFont const& font);
    QColor textColour(bool isDim) const;
    /// Returns how wide it is.
    int paintStateIn(QRect const& area, ChannelRowState state);
    void paintSecondLine(QRect area, Channel const& channel);
    void paintLogo(QRect const& box, Channel const& channel, LogoPixmaps& logos);
    void paintLine(QRect const& area, QFont const& font, QColor const& colour, QString const& text);
    /// A rectangle of a left-to-right cell, where it is in this one.
    QRect visual(QRect const& logical) const;

    QPainter& _painter;
    QStyleOptionViewItem const& _option;
    bool const _isSelected;
};
