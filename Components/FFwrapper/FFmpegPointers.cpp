#include "FFmpegPointers.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

void FFmpegDeleter::operator()(AVCodecContext* context) const
{
    avcodec_free_context(&context);
}

void FFmpegDeleter::operator()(AVFrame* frame) const
{
    av_frame_free(&frame);
}

void FFmpegDeleter::operator()(SwrContext* context) const
{
    swr_free(&context);
}

void FFmpegDeleter::operator()(SwsContext* context) const
{
    sws_freeContext(context);
}
