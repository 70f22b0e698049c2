#pragma once

#include "FFmpegPointers.h"

#include <functional>
#include <memory>
#include <optional>

class Logger;
struct AVFilterContext;
struct AVFilterGraph;
struct AVFrame;
struct AVRational;
struct FilterLibrary;

/// Turns pictures that are made of two fields into whole ones, one for each field, by libavfilter's bwdif, while the
/// pictures say that they are so made; others pass as they are. One thread at a time.
class GLMovieDeinterlacer
{
public:
    /// Takes a picture and when it is to be shown, in seconds of its stream; nothing when it does not tell.
    using Take = std::function<void(AVFrame*, std::optional<double> seconds)>;

    GLMovieDeinterlacer();
    ~GLMovieDeinterlacer();

    /// Hands on what comes out for a picture: itself, or what the filter makes of it and of those before it. The
    /// picture is the caller's, blank afterwards where the filter took it; its time base is that of its time stamp.
    /// Where the filter fails, with a line in the log, pictures pass as they are.
    void deinterlace(AVFrame* frame, AVRational timeBase, Take const& take);

    /// Hands on what the filter still holds, at the end of a film.
    void drain(Take const& take);

    /// Forgets what belongs to another place of the film.
    void flush();

private:
    struct GraphDeleter {
        void operator()(AVFilterGraph* graph) const;
    };

    bool fits(AVFrame const* frame) const;
    bool create(AVFrame const* frame, AVRational timeBase);
    void takeOut(Take const& take);

    static Logger* log;

    FilterLibrary const* _filters = nullptr;             ///< From the first picture on that needs it.
    std::unique_ptr<AVFilterGraph, GraphDeleter> _graph; ///< Null while no picture needs it.
    AVFilterContext* _source = nullptr;                  ///< The graph's, as is the next.
    AVFilterContext* _sink = nullptr;
    FramePointer _out;
    int _width = 0;
    int _height = 0;
    int _format = -1;
    bool _failed = false;
};
