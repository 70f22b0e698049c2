#pragma once

#include <QByteArray>

#include <cstdarg>

/// What FFmpeg logs as an error on this thread while this lives: some of its functions tell reasons nowhere else. One
/// at a time on each thread.
class FFmpegErrors
{
public:
    FFmpegErrors();
    ~FFmpegErrors();
    FFmpegErrors(FFmpegErrors const&) = delete;
    FFmpegErrors& operator=(FFmpegErrors const&) = delete;

    /// The newest line, in FFmpeg's words; empty when there was none.
    QByteArray const& last() const { return _last; }

private:
    static void take(void* context, int level, char const* format, std::va_list arguments)
        __attribute__((format(printf, 3, 0)));

    QByteArray _last;
};
