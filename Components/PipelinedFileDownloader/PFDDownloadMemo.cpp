#include "PFDDownloadMemo.h"

#include "PipelinedFileDownloader.h"

PFDDownloadMemo::PFDDownloadMemo(PipelinedFileDownloader& downloader, DownloadableObject const& object)
    : AbstractMemo(&downloader), _downloader(downloader), _object(object)
{
}

void PFDDownloadMemo::handle()
{
    _downloader.queueObject(_object);
}
