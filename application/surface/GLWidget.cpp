#include "GLWidget.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "GLExtension.h"
#include "GLExtensions.h"
#include "Logger.h"
#include "LoggerManager.h"
#include "SurfaceAccessible.h"

#include <QApplication>
#include <QDateTime>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QScreen>
#include <QWindow>

#include <array>
#include <cmath>
#include <utility>

Logger* GLWidget::log = LoggerManager::logger();

namespace
{

constexpr int mouseHideTime = 3000; // ms
constexpr std::array<double, 8> zoomFactors = {0.25, 0.5, 0.75, 1.0, 1.25, 1.5, 1.75, 2.0};

} // namespace

GLWidget::GLWidget(AppData& appData, QWidget* parent)
    : QWidget(parent), _appData(appData), _surface(*this), _overlay(appData, &_layout), _carousel(appData)
{
    SurfaceAccessible::install(); // First: what is asked for once is kept.
    setObjectName("glWidget");
    setAccessibleName(tr("Picture"));
    setAccessibleDescription(tr("What plays; Tab goes to its controls"));
    setAttribute(Qt::WA_NativeWindow);
    setAttribute(Qt::WA_DontCreateNativeAncestors);
    setAttribute(Qt::WA_PaintOnScreen);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoSystemBackground);
    setMinimumSize(160, 90);
    setMouseTracking(true);
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    _mouseHideTimer.setSingleShot(true);
    _mouseHideTimer.setInterval(mouseHideTime);
    connect(&_mouseHideTimer, &QTimer::timeout, this, &GLWidget::onMouseHideTimer);
    _zoomAnimation.setEasing(QEasingCurve::OutCubic);
    _layout.setWidget(this);
    connectHub();
    connectOverlay();
}

void GLWidget::connectHub()
{
    connect(_appData.channelManager(), &ChannelManager::pictureUpdated, &_pacer, &PaintPacer::request);
    connect(_appData.channelManager(), &ChannelManager::cursorChanged, this, &GLWidget::onCursorChanged);
    connect(&_appData.settings, &AppSettings::drawModeChanged, &_pacer, &PaintPacer::request);
    connect(&_appData.settings, &AppSettings::perspectiveChanged, &_pacer, &PaintPacer::request);
    connect(&_appData, &AppData::surfaceOutdated, this, &GLWidget::onSurfaceOutdated);
    connect(&_pacer, &PaintPacer::paint, this, &GLWidget::onRenderTimer);
    connect(&_screenshots, &ImageSaver::saved, this, &GLWidget::screenshotCompleted);
    connect(&_surface, &GLSurface::exposed, this, &GLWidget::onExposed);
    connect(&_surface, &GLSurface::windowChanged, this, &GLWidget::onWindowChanged);
    connect(&_appData.settings, &AppSettings::showFullScreenChanged, this, &GLWidget::onShowFullScreenChanged);
    connect(&_appData.settings, &AppSettings::carouselModeChanged, this, &GLWidget::onCarouselModeChanged);
    connect(qApp, &QApplication::focusChanged, this, &GLWidget::onFocusChanged);
}

void GLWidget::connectOverlay()
{
    connect(&_layout, &GLControlLayout::changed, &_pacer, &PaintPacer::request);
    connect(&_layout, &GLControlLayout::hoverChanged, this, &GLWidget::onHoverChanged);
    connect(&_overlay, &GLOverlay::visibilityChanged, this, &GLWidget::onOverlayVisibilityChanged);
    connect(&_overlay, &GLOverlay::carouselButtonPressed, this, &GLWidget::onCarouselBarButtonPressed);
    connect(&_overlay, &GLOverlay::screenshotPressed, this, &GLWidget::onTakeScreenshot);
    connect(&_overlay, &GLOverlay::videoMousePress, this, &GLWidget::onVideoMousePress);
    connect(&_overlay, &GLOverlay::videoMouseMove, this, &GLWidget::onVideoMouseMove);
    connect(&_overlay, &GLOverlay::videoMouseRelease, this, &GLWidget::onVideoMouseRelease);
    connect(&_overlay, &GLControl::mouseCancelled, this, &GLWidget::cancelPress);
    connect(&_overlay, &GLOverlay::videoKeyPress, this, &GLWidget::onVideoKeyPress);
    connect(&_overlay, &GLOverlay::videoKeyRelease, this, &GLWidget::onVideoKeyRelease);
    connect(&_carousel, &GLCarousel::changed, &_pacer, &PaintPacer::request);
    connect(&_carousel, &GLCarousel::activeChannelChanged, this, &GLWidget::onCarouselActiveChannelChanged);
    connect(&_carousel, &GLCarousel::mouseEnteredSlide, this, &GLWidget::onCarouselMouseEnteredSlide);
    connect(&_carousel, &GLCarousel::mouseLeftSlide, this, &GLWidget::onCarouselMouseLeftSlide);
    connect(&_carousel, &GLCarousel::left, this, [this] { _appData.settings.setCarouselMode(false); });
    connect(&_zoomAnimation, &GLAnimation::valueChanged, this, &GLWidget::onZoomAnimationValueChanged);
    connect(&_zoomAnimation, &GLAnimation::completed, this, &GLWidget::onZoomAnimationCompleted);
}

GLWidget::~GLWidget()
{
    // Whatever they still have to say while they go is for nobody.
    for (QObject* const sender : std::initializer_list<QObject*>{qApp, &_layout, &_overlay, &_carousel})
        sender->disconnect(this);
    destroyPrograms();
}

void GLWidget::destroyPrograms()
{
    _presenter.reset();
    _carousel.leave(); // Its textures go with the context.
    if (_surface.makeCurrent()) {
        _appData.videoPrograms.clearPostProcessingShaders();
        _appData.videoPrograms.colourConversionShader().destroy();
        _surface.context()->doneCurrent();
    }
}

void GLWidget::onSurfaceOutdated()
{
    if (!_isInitialized)
        return;
    _appData.settings.setCarouselMode(false);
    destroyPrograms();
    _surface.renew(_appData.settings.enableAntialiasing());
    _isInitialized = false;
    _pacer.request();
}

bool GLWidget::hasOpenGL()
{
    return GLSurface::isAvailable();
}

void GLWidget::initializeGL()
{
    _isInitialized = true;
    initGLExtensions(_surface.context());
    LOG_INFO("OpenGL %s %s %s", qPrintable(GLExtension::version()), qPrintable(GLExtension::renderer()),
             qPrintable(GLExtension::vendor()));
    _appData.videoPrograms.createColourConversion();
    choosePresentation();
    emit initialized();
}

void GLWidget::choosePresentation()
{
    using Presentation = AppSettings::Presentation;
    Presentation const wanted = _appData.settings.presentation();
    if (wanted == Presentation::OpenGl ||
        (wanted == Presentation::Automatic && !_appData.videoPrograms.drawsInSoftware()))
        return;
    _presenter = std::make_unique<GLMoviePresenter>();
    connect(_presenter.get(), &GLMoviePresenter::ready, &_pacer, &PaintPacer::request);
    onWindowChanged(windowHandle());
}

void GLWidget::onWindowChanged(QWindow* window)
{
    _pacer.setRefreshRate(window->screen()->refreshRate());
    if (_presenter && !_presenter->setWindow(static_cast<xcb_window_t>(window->winId())))
        LOG_INFO("Pictures are drawn with OpenGL");
}

void GLWidget::onExposed()
{
    if (_presenter)
        _presenter->forget(); // What was on the window has been lost.
    _pacer.request();
}

void GLWidget::paintEvent(QPaintEvent*)
{
    onExposed();
}

void GLWidget::onRenderTimer()
{
    bool const isExposed = _surface.isExposed();
    _appData.channelManager()->setWatched(isExposed);
    if (isExposed)
        render();
}

void GLWidget::render()
{
    _pacer.painted();
    placeControls(); // On another screen there are other pixels.
    if (!_surface.create(_appData.settings.enableAntialiasing()) || !_surface.isExposed() || !_surface.adoptWindow())
        return;
    _appData.channelManager()->setWatched(true);
    if (!_isInitialized)
        initializeGL();
    if (!presentPictures() && _surface.makeCurrent())
        drawPictures();
    followPictures();
}

/// What depends on where the pictures have been drawn.
void GLWidget::followPictures()
{
    logVideoRectangle();
    _overlay.updateMark();
}

bool GLWidget::presentPictures()
{
    if (!_presenter)
        return false;
    ChannelManager& channels = *_appData.channelManager();
    if (!_appData.settings.perspectiveMode() && !isCarouselShown() && channels.isPlain() &&
        _presenter->present(surfaceRect().size(), channels.plainPictures(surfaceRect(), drawMode()),
                            _layout.patches()) != GLMoviePresenter::Result::Impossible)
        return true;
    _presenter->forget(); // OpenGL draws over it.
    return false;
}

void GLWidget::drawPictures()
{
    QRect const surface = surfaceRect();
    createViewport(surface.width(), surface.height());
    _surface.context()->functions()->glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    _surface.context()->functions()->glClear(GL_COLOR_BUFFER_BIT);
    renderVideo();
    renderControls();
    _surface.swapBuffers();
}

void GLWidget::renderControls()
{
    glPushMatrix();
    glScaled(_layout.scale(), _layout.scale(), 1.0);
    _layout.render(1.0);
    glPopMatrix();
}

GLMovieRenderer::DrawMode GLWidget::drawMode() const
{
    return static_cast<GLMovieRenderer::DrawMode>(_appData.settings.drawMode());
}

void GLWidget::renderVideo()
{
    if (isCarouselShown())
        _carousel.render(surfaceRect().size(), _zoomAnimation.value());
    else if (_appData.settings.perspectiveMode())
        _appData.channelManager()->renderVideoPerspective(surfaceRect(), drawMode());
    else
        _appData.channelManager()->renderVideoOrtho(surfaceRect(), drawMode());
}

void GLWidget::createViewport(int width, int height)
{
    glViewport(0, 0, width, height);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, width, height, 0.0, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

QRect GLWidget::surfaceRect() const
{
    return {QPoint(0, 0), size() * devicePixelRatio()};
}

void GLWidget::logVideoRectangle()
{
    if (log->level() > Logger::Debug)
        return;
    Channel const* const channel = _appData.channelManager()->activeChannel();
    QRect rectangle = channel ? channel->videoWindow() : QRect();
    rectangle.translate(mapToGlobal(QPoint(0, 0)));
    if (rectangle == _loggedVideoRectangle || rectangle.isEmpty())
        return;
    _loggedVideoRectangle = rectangle;
    LOG_DEBUG("Video rectangle %d %d %d %d", rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height());
}

QImage GLWidget::takeScreenshot(bool withOverlay)
{
    if (!_surface.makeCurrent())
        return {};
    QRect const surface = surfaceRect();
    QImage image(surface.size(), QImage::Format_RGBX8888);
    createViewport(surface.width(), surface.height());
    _surface.context()->functions()->glClear(GL_COLOR_BUFFER_BIT);
    renderVideo();
    if (withOverlay)
        renderControls();
    // Rows of this format are four bytes a pixel, so they need no padding.
    _surface.context()->functions()->glReadPixels(0, 0, image.width(), image.height(), GL_RGBA, GL_UNSIGNED_BYTE,
                                                  image.bits());
    return image.mirrored();
}

void GLWidget::saveScreenshot(QImage const& image, QString const& path)
{
    _screenshots.save(image, path);
}

void GLWidget::onTakeScreenshot()
{
    QString const time = QDateTime::currentDateTime().toString("yyyy-MM-dd hh-mm-ss-zzz");
    // Whoever reaches for the button does not want to have it in the picture.
    saveScreenshot(takeScreenshot(false), _appData.settings.screenshotDirectory() + "/" + time + ".png");
}

double GLWidget::calculateZoom() const
{
    Channel const* const channel = _appData.channelManager()->activeChannel();
    if (!channel || channel->movieSize().isEmpty())
        return 0.0;
    double const shown = static_cast<double>(channel->videoWindow().width()) / channel->movieSize().width();
    return *std::min_element(zoomFactors.cbegin(), zoomFactors.cend(),
                             [shown](double a, double b) { return std::abs(a - shown) < std::abs(b - shown); });
}
