#include "PFDFinishedMemo.h"

#include "PipelinedFileDownloader.h"

PFDFinishedMemo::PFDFinishedMemo(PipelinedFileDownloader& downloader, QString const& host, int number)
    : AbstractMemo(&downloader), _downloader(downloader), _host(host), _number(number)
{
}

void PFDFinishedMemo::handle()
{
    _downloader.finishDownload(_host, _number);
}
