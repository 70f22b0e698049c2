#pragma once

#include "AbstractMemo.h"
#include "DownloadableObject.h"

class PipelinedFileDownloader;

/// Queues an object for its server.
class PFDDownloadMemo : public AbstractMemo
{
public:
    PFDDownloadMemo(PipelinedFileDownloader& downloader, DownloadableObject const& object);

    void handle() override;

private:
    PipelinedFileDownloader& _downloader;
    DownloadableObject const _object;
};
