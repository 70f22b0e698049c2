#pragma once

#include "AbstractMemo.h"

#include <QString>

class PipelinedFileDownloader;

/// Writes what has come of a download to its file.
class PFDReadMemo : public AbstractMemo
{
public:
    PFDReadMemo(PipelinedFileDownloader& downloader, QString const& host, int number);

    void handle() override;

private:
    PipelinedFileDownloader& _downloader;
    QString const _host;
    int const _number;
};
