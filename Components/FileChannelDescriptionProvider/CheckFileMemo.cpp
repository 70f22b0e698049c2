#include "CheckFileMemo.h"

#include "FileChannelDescriptionProvider.h"

CheckFileMemo::CheckFileMemo(FileChannelDescriptionProvider& provider) : AbstractMemo(&provider), _provider(provider)
{
}

void CheckFileMemo::handle()
{
    _provider.checkFile();
}
