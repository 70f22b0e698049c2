#include "StreamSelection.h"

#include "AsfHeader.h"

#include <algorithm>

namespace
{
constexpr int none = 0xFFFF;
}

StreamSelection::Value StreamSelection::value(int stream) const
{
    auto const found = _values.find(stream);
    return found == _values.end() ? Full : found->second;
}

void StreamSelection::set(int stream, Value value)
{
    if (value == Full)
        _values.erase(stream);
    else
        _values[stream] = value;
}

StreamSelection StreamSelection::choose(AsfHeader const& header, QList<Switch> const& switches, qint64 maximumBitrate)
{
    StreamSelection selection;
    for (Switch const& wish : switches) {
        if (!header.streams().contains(wish.to))
            continue; // Also bounds what is remembered.
        if (wish.from != none && wish.from != wish.to && header.streams().contains(wish.from))
            selection.set(wish.from, Off);
        selection.set(wish.to, wish.value);
    }
    for (QList<int> const& group : header.exclusions()) {
        QList<int> alternatives;
        std::copy_if(group.cbegin(), group.cend(), std::back_inserter(alternatives),
                     [&](int stream) { return header.streams().contains(stream) && selection.value(stream) != Off; });
        auto const bitrate = [&](int stream) { return static_cast<qint64>(header.streams().value(stream).bitrate); };
        std::stable_sort(alternatives.begin(), alternatives.end(),
                         [&](int a, int b) { return bitrate(a) > bitrate(b); });
        qint64 others = 0;
        for (int const stream : header.streams().keys()) {
            if (!alternatives.contains(stream) && selection.value(stream) != Off)
                others += bitrate(stream);
        }
        auto const fits = [&](int stream) {
            return maximumBitrate == 0 || others + bitrate(stream) <= maximumBitrate;
        };
        auto chosen = std::find_if(alternatives.cbegin(), alternatives.cend(), fits);
        if (chosen == alternatives.cend() && !alternatives.isEmpty())
            chosen = alternatives.cend() - 1;
        for (auto stream = alternatives.cbegin(); stream != alternatives.cend(); ++stream) {
            if (stream != chosen)
                selection.set(*stream, Off);
        }
    }
    return selection;
}
