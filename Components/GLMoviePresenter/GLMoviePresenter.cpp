#include "GLMoviePresenter.h"

#include "GLMovieTexture.h"

#include <QPainter>

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

void GLMoviePresenter::arrange(QSize const& surface, std::vector<GLMoviePicture> const& pictures,
                               QList<GLPatch> const& patches)
{
    _surface = surface;
    _pictures = pictures;
    _patches = patches;
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
    arrangeMargins();
}

void GLMoviePresenter::arrangeMargins()
{
    _margins.clear();
    for (GLPatch const& patch : std::as_const(_patches)) {
        for (QRect const& area : _background& patch.rectangle()) {
            _margins.push_back({.area = area, .offset = _bytes});
            _bytes += static_cast<size_t>(rowLength(area.width())) * static_cast<size_t>(area.height()) *
                      X11Presenter::bytesPerPixel;
        }
        _background -= patch.rectangle(); // What others put there, its margin has too.
    }
}

GLMoviePresenter::Result GLMoviePresenter::present(QSize const& surface, std::vector<GLMoviePicture> const& pictures,
                                                   QList<GLPatch> const& patches)
{
    bool const isWhole = _isForgotten || surface != _surface || pictures != _pictures || patches != _patches;
    if (isWhole) {
        arrange(surface, pictures, patches);
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
    if (isWhole) {
        _presenter.fill(_background);
        for (Margin const& margin : _margins)
            showMargin(margin);
    }
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
    QPoint const place = _pictures[index].visible.topLeft();
    QImage picture(_presenter.memory() + slot.offset, slot.cut.scaled.width(), slot.cut.scaled.height(),
                   width * X11Presenter::bytesPerPixel, QImage::Format_RGB32);
    blend(picture, slot.cut.shown, place);
    _presenter.put(slot.offset, QSize(width, slot.cut.scaled.height()), slot.cut.shown, place);
    return true;
}

void GLMoviePresenter::showMargin(Margin const& margin)
{
    int const width = rowLength(margin.area.width());
    QImage black(_presenter.memory() + margin.offset, width, margin.area.height(),
                 width * X11Presenter::bytesPerPixel, QImage::Format_RGB32);
    black.fill(Qt::black);
    QRect const part(QPoint(0, 0), margin.area.size());
    blend(black, part, margin.area.topLeft());
    _presenter.put(margin.offset, black.size(), part, margin.area.topLeft());
}

/// Lays the patches over a part of an image that is to be seen at a place.
void GLMoviePresenter::blend(QImage& target, QRect const& part, QPoint const& place) const
{
    if (_patches.isEmpty())
        return;
    QPainter painter(&target);
    painter.setClipRect(part);
    for (GLPatch const& patch : _patches)
        if (patch.rectangle().intersects(QRect(place, part.size())))
            painter.drawImage(patch.place - place + part.topLeft(), patch.image);
}
