#include "BiscottiTopic.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void checkNormalForm(QString const& text)
{
    QString const normal = BiscottiTopic::normalise(text);
    require(BiscottiTopic::normalise(normal) == normal);
    require(normal.size() <= text.size() + 1);
    require(normal.isEmpty() || normal.startsWith(BiscottiTopic::Delimiter()));
    require(!normal.contains(u".."));
    require(BiscottiTopic(text).isNull() ? normal.isEmpty() : BiscottiTopic(text).toString() == normal);
}

void checkLevels(BiscottiTopic const& topic)
{
    QStringList const levels = topic.split();
    require(levels.value(levels.size() - 1) == topic.last());
    BiscottiTopic const root = topic.isNull() ? BiscottiTopic::Null() : BiscottiTopic::Root();
    require(root.append(levels.join(BiscottiTopic::Delimiter())) == topic);
    if (levels.isEmpty())
        return;
    BiscottiTopic const above = root.append(levels.mid(0, levels.size() - 1).join(BiscottiTopic::Delimiter()));
    require(above.append(levels.constLast()) == topic);
    require(above.matches(topic) && topic.matches(above));
}

/// The same, level by level.
bool matchesByLevels(BiscottiTopic const& left, BiscottiTopic const& right)
{
    if (left.isNull() || right.isNull())
        return false;
    QStringList const leftLevels = left.split();
    QStringList const rightLevels = right.split();
    qsizetype const shared = std::min(leftLevels.size(), rightLevels.size());
    return leftLevels.mid(0, shared) == rightLevels.mid(0, shared);
}

} // namespace

/// A byte that says where the rest is parted in two, then the text, in UTF-16 if that byte is odd and otherwise in
/// UTF-8. Both parts have one normal form, fall into their levels and are put together from them again, and match
/// each other if their levels do.
extern "C" int LLVMFuzzerTestOneInput(uint8_t const* data, size_t size)
{
    if (size == 0)
        return 0;
    auto const* bytes = reinterpret_cast<char const*>(data + 1);
    QByteArrayView const content(bytes, static_cast<qsizetype>(size - 1));
    QString text = QString::fromUtf8(content);
    if (data[0] % 2 == 1) {
        text.resize(content.size() / 2);
        std::copy_n(bytes, text.size() * 2, reinterpret_cast<char*>(text.data()));
    }
    qsizetype const middle = text.size() * data[0] / 255;
    BiscottiTopic const left(text.left(middle));
    BiscottiTopic const right(text.mid(middle));

    checkNormalForm(text);
    checkLevels(left);
    checkLevels(right);
    require(left.matches(right) == matchesByLevels(left, right));
    require(right.matches(left) == left.matches(right));
    require(left.matches(left) == !left.isNull());
    return 0;
}
