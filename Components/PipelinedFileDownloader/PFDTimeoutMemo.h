#pragma once

#include "AbstractMemo.h"

#include <QString>

class PipelinedFileDownloader;

/// Looks whether a download takes too long.
class PFDTimeoutMemo : public AbstractMemo
{
public:
    PFDTimeoutMemo(PipelinedFileDownloader& downloader, QString const& host, int number);

    void handle() override;

private:
    PipelinedFileDownloader& _downloader;
    QString const _host;
    int const _number;
};
