#pragma once

#include "AbstractMemo.h"

class FileChannelDescriptionProvider;

/// Looks whether the channel file has changed, again and again.
class CheckFileMemo : public AbstractMemo
{
public:
    explicit CheckFileMemo(FileChannelDescriptionProvider& provider);

    void handle() override;

private:
    FileChannelDescriptionProvider& _provider;
};
