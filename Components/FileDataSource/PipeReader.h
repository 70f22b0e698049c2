#pragma once

#include "FFwrapper.h"

struct AVIOInterruptCB;

/// Reads a local file that can keep its reader waiting, such as a FIFO or a device, so that the wait can be ended:
/// FFmpeg's own access waits in the system, for a writer too, where nothing ends it. For one thread.
class PipeReader
{
public:
    /// Whether the path names such a file.
    static bool isNeededFor(QByteArray const& path);

    /// Opens without waiting for a writer; `interrupt` ends what waits later. See error().
    PipeReader(QByteArray const& path, AVIOInterruptCB const& interrupt);
    ~PipeReader();
    PipeReader(PipeReader const&) = delete;
    PipeReader& operator=(PipeReader const&) = delete;

    /// FFmpeg's error when the file could not be opened, else 0.
    int error() const { return _error; }

    /// A read callback for FFwrapper::setFFHandler(), with this object as user data.
    static int read(void* userData, std::uint8_t* buffer, int size);

private:
    int waitForBytes() const;

    int (*_interrupt)(void*);
    void* _interruptOpaque;
    int _descriptor;
    int _error;
};
