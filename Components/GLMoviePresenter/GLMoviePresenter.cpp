#include "GLMoviePresenter.h"

#include "GLMovieTexture.h"

#include <mutex>

namespace
{
constexpr int pixelAlignment = 16; ///< What swscale writes at once.
constexpr size_t maximumBytes =
    256 * 1024 * 1024; ///< Two pictures of 7680 x 4320; more is a cut that found no place.

/// The pixels that a row takes in memory.
int rowLength(int width)
{
    return (width + pixelAlignment - 1) / pixelAlignment * pixelAlignment;
}
} // namespace

GLMoviePresenter::GLMoviePresenter(QObject* parent) : QObject(parent)
{
    connect(&_presenter, &X11Presenter::ready, this, &GLMoviePresenter::ready);
}

bool GLMoviePresenter::setWindow(xcb_window_t window)
{
    forget();
    return _presenter.setWindow(window);
}

void GLMoviePresenter::arrange(QSize const& surface, std::vector<GLMoviePicture> const& pictures)
{
    _surface = surface;
    _pictures = pictures;
    _slots.assign(pictures.size(), {});
    _scalers.resize(pictures.size());
    _background = QRect(QPoint(0, 0), surface);
    _bytes = 0;
    for (size_t i = 0; i < pictures.size(); ++i) {
        GLMovieTexture const& texture = *pictures[i].texture;
        _background -= pictures[i].visible;
        GLMovieCut const cut = GLMovieCut::of(QSize(texture.planeWidth(0), texture.planeHeight(0)), pictures[i]);
        _slots[i] = {.cut = cut, .offset = _bytes};
        _bytes += static_cast<size_t>(rowLength(cut.scaled.width())) * static_cast<size_t>(cut.scaled.height() + 1) *
                  X11Presenter::bytesPerPixel;
    }
}

GLMoviePresenter::Result GLMoviePresenter::present(QSize const& surface, std::vector<GLMoviePicture> const& pictures)
{
    bool const isWhole = _isForgotten || surface != _surface || pictures != _pictures;
    if (isWhole) {
        arrange(surface, pictures);
        _isForgotten = true; // Until all of it has been shown.
    }
    if (_bytes > maximumBytes)
        return Result::Impossible;
    switch (_presenter.begin(std::max<size_t>(_bytes, 1))) {
    case X11Presenter::State::Ready:
        break;
    case X11Presenter::State::Busy:
        return Result::Later;
    case X11Presenter::State::Failed:
        return Result::Impossible;
    }
    bool isShown = true;
    for (size_t i = 0; i < _pictures.size(); ++i)
        isShown = showPicture(i) && isShown;
    if (isWhole)
        _presenter.fill(_background);
    _presenter.end();
    _isForgotten = !isShown;
    return isShown ? Result::Shown : Result::Impossible;
}

bool GLMoviePresenter::showPicture(size_t index)
{
    Slot& slot = _slots[index];
    GLMovieTexture& texture = *_pictures[index].texture;
    int const width = rowLength(slot.cut.scaled.width());
    {
        std::lock_guard const lock(texture);
        if (texture.generation() == slot.generation)
            return true;
        if (!_scalers[index].scale(texture, slot.cut, _presenter.memory() + slot.offset,
                                   width * X11Presenter::bytesPerPixel))
            return false;
        slot.generation = texture.generation();
    }
    _presenter.put(slot.offset, QSize(width, slot.cut.scaled.height()), slot.cut.shown,
                   _pictures[index].visible.topLeft());
    return true;
}
