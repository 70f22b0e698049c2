#include "PFDHost.h"

#include <algorithm>

void PFDHost::queueObject(DownloadableObject const& object)
{
    if (!object.isUrgent) {
        _queue.append(object);
        return;
    }
    auto const place = std::find_if(_queue.cbegin(), _queue.cend(),
                                    [](DownloadableObject const& waiting) { return !waiting.isUrgent; });
    _queue.insert(place, object);
}

QSet<Uri> PFDHost::dropObjects(QSet<Uri> const& uris)
{
    QSet<Uri> dropped;
    _queue.removeIf([&](DownloadableObject const& object) {
        bool const isUnwanted = uris.contains(object.uri);
        if (isUnwanted)
            dropped.insert(object.uri);
        return isUnwanted;
    });
    return dropped;
}
