#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPixmap>

/// The icons of the program, by what they mean.
enum class Icon {
    Play,
    Pause,
    Stop,
    Previous,
    Next,
    Multiview,
    FullScreen,
    LeaveFullScreen,
    Volume,
    VolumeLow,
    Muted,
    Record,
    Screenshot,
    Chat,
    Alert,
    AlertOff,
    User,
    SignOut,
    Search,
    Favourite,
    FavouriteOff,
    Add,
    Remove,
    Close,
    Settings,
    Refresh,
    Delete,
    Carousel,
    Buffer,
    Warning,
    Error,
    Info,
    Television,
    Radio,
    Lock,
    Copy,
    Link,
    Up,
    Down,
    Left,
    Right,
    Edit,
    Open,
    Menu,
    Minimise,
    Maximise,
    Restore,
};

/// Draws the icons of the program, vectors of our own in one style, sharp at any size and device pixel ratio. Main
/// thread only.
class Icons
{
public:
    /// In the palette's colour of text for the state in which it is drawn; follows the palette as it changes.
    static QIcon icon(Icon icon);

    /// A square for other uses than Qt's own, such as a texture: one colour, transparent ground, not premultiplied
    /// with anything but its alpha (ARGB32, premultiplied). Null for a side that is not positive.
    static QImage image(Icon icon, int pixels, QColor const& colour);

    /// The same for painting, from a cache; its device pixel ratio is 1.
    static QPixmap pixmap(Icon icon, int pixels, QColor const& colour);

    static constexpr int count = static_cast<int>(Icon::Restore) + 1;
    /// Where the icon's vectors are among the resources.
    static QString path(Icon icon);
};
