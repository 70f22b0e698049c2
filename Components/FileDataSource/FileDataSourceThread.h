#pragma once

#include "FileDataSource.h"

#include <QDeadlineTimer>
#include <QThread>

struct AVDictionary;
struct AVIOContext;

/// Opens one format context for a FileDataSource, which it never touches: it may be left behind.
class FileDataSource::FileDataSourceThread : public QThread
{
    Q_OBJECT

public:
    FileDataSourceThread(QString const& path, bool isNetwork, std::shared_ptr<std::atomic<bool>> interruption);

    ~FileDataSourceThread() override;

    /// Makes every blocked FFmpeg call of this context return, now and later. Any thread.
    void abandon() { _abandoned = true; }

    /// The opened context, once the thread has finished; null when it failed.
    FormatContextPointer takeContext();

protected:
    void run() override;

private:
    FormatContextPointer openInternal();
    static int interruptCallback(void* opaque);
    static int openNested(AVFormatContext* context, AVIOContext** io, char const* url, int flags,
                          AVDictionary** options);

    static Logger* log;

    QString const _path;
    bool const _isNetwork;
    std::shared_ptr<std::atomic<bool>> const _interruption;
    std::atomic<bool> _abandoned{false};
    std::atomic<bool> _opening{true};
    QDeadlineTimer const _deadline; ///< For the opening.
    std::mutex _mutex;              ///< Guards _context.
    FormatContextPointer _context;
};
