// How long a decoded picture takes into the texture, against a plain copy of as many bytes.

#include "GLMovieTexture.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
}

#include <benchmark/benchmark.h>
#include <cstring>
#include <memory>
#include <vector>

namespace
{

struct FrameDeleter {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};

std::unique_ptr<AVFrame, FrameDeleter> makeFrame(int width, int height, AVPixelFormat format)
{
    std::unique_ptr<AVFrame, FrameDeleter> frame(av_frame_alloc());
    frame->width = width;
    frame->height = height;
    frame->format = format;
    av_frame_get_buffer(frame.get(), 0);
    for (int plane = 0; plane < 3 && frame->data[plane]; ++plane)
        std::memset(frame->data[plane], 90,
                    static_cast<size_t>(frame->linesize[plane]) *
                        static_cast<size_t>(plane == 0 ? height : height / 2));
    return frame;
}

void update(benchmark::State& state, AVPixelFormat source, AVPixelFormat target)
{
    int const width = static_cast<int>(state.range(0));
    int const height = static_cast<int>(state.range(1));
    auto const frame = makeFrame(width, height, source);
    AVCodecContext* context = avcodec_alloc_context3(nullptr);
    context->width = width;
    context->height = height;
    GLMovieTexture texture;
    texture.create(context, target);
    avcodec_free_context(&context);
    for (auto _ : state)
        texture.update(frame.get(), false);
    state.SetBytesProcessed(state.iterations() * av_image_get_buffer_size(target, width, height, 1));
}

void plainCopy(benchmark::State& state)
{
    auto const bytes = static_cast<size_t>(state.range(0) * state.range(1) * 3 / 2);
    std::vector<unsigned char> const source(bytes, 90);
    std::vector<unsigned char> target(bytes);
    for (auto _ : state) {
        std::memcpy(target.data(), source.data(), bytes);
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(bytes));
}

} // namespace

BENCHMARK(plainCopy)->Name("TextureUpdate/plainCopy")->Args({1280, 720})->Args({1920, 1080});
BENCHMARK_CAPTURE(update, YUV, AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUV420P)
    ->Name("TextureUpdate/YUV")
    ->Args({1280, 720})
    ->Args({1920, 1080});
BENCHMARK_CAPTURE(update, YUVtoRGB, AV_PIX_FMT_YUV420P, AV_PIX_FMT_RGB24)->Args({1280, 720})->Args({1920, 1080});
