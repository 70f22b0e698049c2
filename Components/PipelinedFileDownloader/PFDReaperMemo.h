#pragma once

#include "AbstractMemo.h"

class PipelinedFileDownloader;

/// Drops the connections that are idle, again and again.
class PFDReaperMemo : public AbstractMemo
{
public:
    static constexpr int ReaperIntervalMs = 180000;

    explicit PFDReaperMemo(PipelinedFileDownloader& downloader);

    void handle() override;

private:
    PipelinedFileDownloader& _downloader;
};
