#include "BiscottiFuzz.h"
#include "BiscottiTopic.h"

#include <QStringList>

#include <algorithm>

using BiscottiFuzz::require;

namespace
{

void checkForm(QString const& text)
{
    QString const normal = BiscottiTopic::normalise(text);
    require(BiscottiTopic::normalise(normal) == normal && normal.size() <= text.size() + 1 &&
            !normal.contains(u".."));
    BiscottiTopic const topic(text);
    require(topic.isNull() ? normal.isEmpty() : topic.toString() == normal);
    BiscottiTopic const root = topic.isNull() ? BiscottiTopic::Null() : BiscottiTopic::Root();
    require(root.append(topic.split().join(BiscottiTopic::Delimiter())) == topic);
}

/// The same as matches(), level by level.
bool matchesByLevels(BiscottiTopic const& left, BiscottiTopic const& right)
{
    qsizetype const shared = std::min(left.split().size(), right.split().size());
    return !left.isNull() && !right.isNull() && left.split().mid(0, shared) == right.split().mid(0, shared);
}

} // namespace

/// A byte that says where the rest is parted in two, then the text in UTF-8. Both parts have one normal form, are put
/// together from their levels again, and match each other if their levels do.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    if (size == 0)
        return 0;
    QString const text = QString::fromUtf8(reinterpret_cast<char const*>(data + 1), static_cast<qsizetype>(size - 1));
    qsizetype const middle = text.size() * data[0] / 255;
    checkForm(text.left(middle));
    checkForm(text.mid(middle));
    BiscottiTopic const left(text.left(middle));
    BiscottiTopic const right(text.mid(middle));
    require(left.matches(right) == matchesByLevels(left, right) && right.matches(left) == left.matches(right));
    return 0;
}
