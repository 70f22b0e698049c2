#pragma once

#include <memory>

struct AVCodecContext;
struct AVFrame;
struct SwrContext;
struct SwsContext;

/// Frees what FFmpeg's libraries have made.
struct FFmpegDeleter {
    void operator()(AVCodecContext* context) const;
    void operator()(AVFrame* frame) const;
    void operator()(SwrContext* context) const;
    void operator()(SwsContext* context) const;
};

using CodecContextPointer = std::unique_ptr<AVCodecContext, FFmpegDeleter>;
using FramePointer = std::unique_ptr<AVFrame, FFmpegDeleter>;
using SwrContextPointer = std::unique_ptr<SwrContext, FFmpegDeleter>;
using SwsContextPointer = std::unique_ptr<SwsContext, FFmpegDeleter>;
