#include "GLMovieDeinterlacer.h"

#include "FFwrapper.h"
#include "FilterLibrary.h"
#include "Logger.h"
#include "LoggerManager.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/rational.h>
}

#include <QByteArray>
#include <QString>

#include <algorithm>

Logger* GLMovieDeinterlacer::log = LoggerManager::logger();

namespace
{
std::optional<double> secondsOf(std::int64_t timestamp, AVRational timeBase)
{
    if (timestamp == AV_NOPTS_VALUE)
        return {};
    return static_cast<double>(timestamp) * av_q2d(timeBase);
}
} // namespace

void GLMovieDeinterlacer::GraphDeleter::operator()(AVFilterGraph* graph) const
{
    FilterLibrary::get()->graphFree(&graph);
}

GLMovieDeinterlacer::GLMovieDeinterlacer() : _out(av_frame_alloc()) {}
GLMovieDeinterlacer::~GLMovieDeinterlacer() = default;

void GLMovieDeinterlacer::deinterlace(AVFrame* frame, AVRational timeBase, Take const& take)
{
    bool const wanted = frame->interlaced_frame != 0;
    if (_graph && (!wanted || !fits(frame))) {
        drain(take);
        _graph.reset();
    }
    if (!wanted || (!_graph && !create(frame, timeBase))) {
        take(frame, secondsOf(frame->best_effort_timestamp, timeBase));
        return;
    }
    frame->pts = frame->best_effort_timestamp;
    if (int const result = _filters->addFrame(_source, frame); result < 0) {
        LOG_WARNING("The pictures cannot be deinterlaced: %s", qPrintable(FFwrapper::errorText(result)));
        _failed = true;
        _graph.reset();
        return;
    }
    takeOut(take);
}

void GLMovieDeinterlacer::drain(Take const& take)
{
    if (!_graph)
        return;
    if (_filters->addFrame(_source, nullptr) >= 0)
        takeOut(take);
    _graph.reset();
}

void GLMovieDeinterlacer::flush()
{
    _graph.reset();
    _failed = false;
}

bool GLMovieDeinterlacer::fits(AVFrame const* frame) const
{
    return frame->width == _width && frame->height == _height && frame->format == _format;
}

bool GLMovieDeinterlacer::create(AVFrame const* frame, AVRational timeBase)
{
    if (_failed && fits(frame))
        return false;
    _width = frame->width;
    _height = frame->height;
    _format = frame->format;
    _failed = true;
    QByteArray const input =
        QString::asprintf("video_size=%dx%d:pix_fmt=%d:time_base=%d/%d:pixel_aspect=%d/%d", _width, _height, _format,
                          timeBase.num, timeBase.den, frame->sample_aspect_ratio.num,
                          std::max(frame->sample_aspect_ratio.den, 1))
            .toLatin1();
    AVFilterContext* bwdif = nullptr;
    _filters = FilterLibrary::get();
    if (!_filters)
        return false;
    _graph.reset(_filters->graphAlloc());
    AVFilterGraph* const graph = _graph.get();
    int result = graph ? 0 : AVERROR(ENOMEM);
    auto const add = [&](AVFilterContext** filter, char const* name, char const* options) {
        if (result >= 0)
            result = _filters->graphCreateFilter(filter, _filters->getByName(name), name, options, nullptr, graph);
    };
    add(&_source, "buffer", input.constData());
    add(&bwdif, "bwdif", "mode=send_field:parity=auto:deint=interlaced");
    add(&_sink, "buffersink", nullptr);
    if (result >= 0)
        result = _filters->link(_source, 0, bwdif, 0);
    if (result >= 0)
        result = _filters->link(bwdif, 0, _sink, 0);
    if (result >= 0)
        result = _filters->graphConfig(graph, nullptr);
    _failed = result < 0;
    if (_failed) {
        LOG_WARNING("The pictures cannot be deinterlaced: %s", qPrintable(FFwrapper::errorText(result)));
        _graph.reset();
    } else {
        LOG_DEBUG("Deinterlacing pictures of %d x %d", _width, _height);
    }
    return !_failed;
}

void GLMovieDeinterlacer::takeOut(Take const& take)
{
    AVRational const outBase = _filters->timeBase(_sink);
    while (_filters->getFrame(_sink, _out.get()) >= 0) {
        take(_out.get(), secondsOf(_out->pts, outBase));
        av_frame_unref(_out.get());
    }
}
