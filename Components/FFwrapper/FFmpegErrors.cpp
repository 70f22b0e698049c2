#include "FFmpegErrors.h"

extern "C" {
#include <libavutil/log.h>
}

#include <array>
#include <cstdio>

namespace
{
thread_local FFmpegErrors* current = nullptr;
}

FFmpegErrors::FFmpegErrors()
{
    [[maybe_unused]] static bool const isListening = [] {
        av_log_set_callback(&FFmpegErrors::take);
        return true;
    }();
    current = this;
}

FFmpegErrors::~FFmpegErrors()
{
    current = nullptr;
}

void FFmpegErrors::take(void* context, int level, char const* format, std::va_list arguments)
{
    if (current && level <= AV_LOG_ERROR) {
        std::array<char, 256> line = {};
        std::va_list copy;
        va_copy(copy, arguments);
        std::vsnprintf(line.data(), line.size(), format, copy);
        va_end(copy);
        current->_last = QByteArray(line.data()).trimmed();
    }
    av_log_default_callback(context, level, format, arguments);
}
