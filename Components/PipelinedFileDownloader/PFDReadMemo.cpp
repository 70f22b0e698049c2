#include "PFDReadMemo.h"

#include "PipelinedFileDownloader.h"

PFDReadMemo::PFDReadMemo(PipelinedFileDownloader& downloader, QString const& host, int number)
    : AbstractMemo(&downloader), _downloader(downloader), _host(host), _number(number)
{
}

void PFDReadMemo::handle()
{
    _downloader.readDownload(_host, _number);
}
