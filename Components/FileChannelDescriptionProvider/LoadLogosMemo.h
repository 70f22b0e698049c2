#pragma once

#include "AbstractMemo.h"

#include <QStringList>

class FileChannelDescriptionProvider;

/// Loads the logos of channels, a few at a time, since others have work for the thread, too.
class LoadLogosMemo : public AbstractMemo
{
public:
    static constexpr int logosPerMemo = 16;

    /// `ids` are those of the channels.
    LoadLogosMemo(FileChannelDescriptionProvider& provider, QStringList const& ids);

    void handle() override;

private:
    FileChannelDescriptionProvider& _provider;
    QStringList const _ids;
};
