#include "BiscottiTopic.h"

#include <QStringList>

#include <cstdint>
#include <cstdlib>

/// Any text in UTF-8 has one normal form, and is put together from its levels again.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    QString const text = QString::fromUtf8(reinterpret_cast<char const*>(data), static_cast<qsizetype>(size));
    QString const normal = BiscottiTopic::normalise(text);
    BiscottiTopic const topic(text);
    BiscottiTopic const root = topic.isNull() ? BiscottiTopic::Null() : BiscottiTopic::Root();
    if (BiscottiTopic::normalise(normal) != normal || normal.size() > text.size() + 1 || normal.contains(u"..") ||
        (topic.isNull() ? !normal.isEmpty() : topic.toString() != normal) ||
        root.append(topic.split().join(BiscottiTopic::Delimiter())) != topic)
        std::abort();
    return 0;
}
