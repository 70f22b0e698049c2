#include "PFDReaperMemo.h"

#include "PipelinedFileDownloader.h"

PFDReaperMemo::PFDReaperMemo(PipelinedFileDownloader& downloader) : AbstractMemo(&downloader), _downloader(downloader)
{
}

void PFDReaperMemo::handle()
{
    _downloader.reapReplies();
}
