#pragma once

#include "AbstractMemo.h"

#include <QString>

class PipelinedFileDownloader;

/// Ends a download that has finished, well or not.
class PFDFinishedMemo : public AbstractMemo
{
public:
    PFDFinishedMemo(PipelinedFileDownloader& downloader, QString const& host, int number);

    void handle() override;

private:
    PipelinedFileDownloader& _downloader;
    QString const _host;
    int const _number;
};
