#include "PFDTimeoutMemo.h"

#include "PipelinedFileDownloader.h"

PFDTimeoutMemo::PFDTimeoutMemo(PipelinedFileDownloader& downloader, QString const& host, int number)
    : AbstractMemo(&downloader), _downloader(downloader), _host(host), _number(number)
{
}

void PFDTimeoutMemo::handle()
{
    _downloader.onTimeout(_host, _number);
}
