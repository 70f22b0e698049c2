#pragma once

#include "GLMovieCut.h"
#include "GLMoviePicture.h"
#include "GLMovieScaler.h"
#include "GLPatch.h"
#include "X11Presenter.h"

#include <QList>
#include <QObject>
#include <QSize>

#include <vector>

/// Shows the newest pictures of films in a window without OpenGL: scaled by swscale into memory that the X server
/// shares. Only what is new is scaled and put. GUI thread only.
class GLMoviePresenter : public QObject
{
    Q_OBJECT

public:
    enum class Result {
        Shown,
        Later,     ///< The X server is behind; ready() tells when it has caught up.
        Impossible ///< Here it has to be OpenGL.
    };

    explicit GLMoviePresenter(QObject* parent = nullptr);

    /// Takes a window in place of the one before. Returns false where pictures cannot be put into it.
    bool setWindow(xcb_window_t window);

    /// Shows the pictures side by side on a surface of that size, black around them, and the patches over all of it.
    /// What has not changed since the last call is left as it is.
    Result present(QSize const& surface, std::vector<GLMoviePicture> const& pictures,
                   QList<GLPatch> const& patches = {});

    /// Has the next present() paint everything: something else has drawn on the window.
    void forget() { _isForgotten = true; }

signals:
    void ready();

private:
    /// One of the pictures: how it is scaled, and where its pixels lie in the memory.
    struct Slot {
        GLMovieCut cut;
        size_t offset = 0;
        quint64 generation = 0; ///< Of the picture shown last.
    };

    /// A part of a patch that no picture is under.
    struct Margin {
        QRect area;
        size_t offset = 0; ///< Of its pixels in the memory.
    };

    void arrange(QSize const& surface, std::vector<GLMoviePicture> const& pictures, QList<GLPatch> const& patches);
    void arrangeMargins();
    bool showPicture(size_t index);
    void showMargin(Margin const& margin);
    void blend(QImage& target, QRect const& part, QPoint const& place) const;

    X11Presenter _presenter;
    std::vector<GLMoviePicture> _pictures; ///< As arranged.
    std::vector<Slot> _slots;              ///< One each.
    std::vector<GLMovieScaler> _scalers;   ///< One each.
    QList<GLPatch> _patches;               ///< Likewise.
    std::vector<Margin> _margins;
    QRegion _background; ///< Where there is neither picture nor patch.
    QSize _surface;
    size_t _bytes = 0; ///< Of memory that all of them need.
    bool _isForgotten = true;
};
