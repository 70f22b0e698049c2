#include "LoadLogosMemo.h"

#include "FileChannelDescriptionProvider.h"

#include <algorithm>

LoadLogosMemo::LoadLogosMemo(FileChannelDescriptionProvider& provider, QStringList const& ids)
    : AbstractMemo(&provider), _provider(provider), _ids(ids)
{
}

void LoadLogosMemo::handle()
{
    _provider.loadLogos(_ids.first(std::min<qsizetype>(_ids.size(), logosPerMemo)));
    if (_ids.size() > logosPerMemo)
        _provider.queueLogos(_ids.sliced(logosPerMemo));
}
