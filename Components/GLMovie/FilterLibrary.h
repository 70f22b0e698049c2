#pragma once

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

/// The functions of libavfilter that are used here. It is loaded when a picture first needs it, not with the program:
/// with all that it brings along, a third of the time that the program takes to begin would go into linking it.
struct FilterLibrary {
    decltype(&avfilter_graph_alloc) graphAlloc;
    decltype(&avfilter_graph_free) graphFree;
    decltype(&avfilter_graph_create_filter) graphCreateFilter;
    decltype(&avfilter_graph_config) graphConfig;
    decltype(&avfilter_get_by_name) getByName;
    decltype(&avfilter_link) link;
    decltype(&av_buffersrc_add_frame) addFrame;
    decltype(&av_buffersink_get_frame) getFrame;
    decltype(&av_buffersink_get_time_base) timeBase;

    /// Loads it at the first call, which takes some tens of milliseconds. Null, with an error in the log, where the
    /// system lacks it. Any thread; it stays to the end of the program.
    static FilterLibrary const* get();
};
