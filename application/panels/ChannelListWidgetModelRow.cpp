#include "ChannelListWidgetModelRow.h"

#include "ChannelTitle.h"
#include "FoldedText.h"
#include "LanguageNames.h"

#include <QCoreApplication>
#include <QVarLengthArray>

#include <algorithm>

namespace
{

constexpr qsizetype maximumShown = 256; // Letters of a text; more does not fit into any window.
constexpr qsizetype maximumLanguages = 4;

using Languages = QVarLengthArray<LanguageId, maximumLanguages>;

Languages languagesOf(ChannelDescription const& description)
{
    Languages found;
    for (StreamDescription const& stream : description.streamDescriptions())
        for (TrackDescription const& track : stream.trackDescriptions())
            if (found.size() < maximumLanguages && !track.languageId().isNull() &&
                std::find(found.cbegin(), found.cend(), track.languageId()) == found.cend())
                found.append(track.languageId());
    return found;
}

} // namespace

bool ChannelListWidgetModelRow::setDescription(ChannelDescription const& of)
{
    description = of;
    rootId = of.rootId();
    title = ChannelTitle::shown(of.title(), maximumShown);
    summary = ChannelDescription::toLine(of.summary().left(maximumShown)).simplified();
    QString names;
    QString keys;
    constexpr int withoutLanguage = ChannelDescription::FileChannel | ChannelDescription::UserStreamChannel;
    bool const isKnown = (of.channelType() & withoutLanguage) == 0; // Nobody has said what the viewer's own speak.
    for (LanguageId const& language : isKnown ? languagesOf(of) : Languages()) {
        names += (names.isEmpty() ? QString() : QStringLiteral(", ")) + LanguageNames::name(language);
        keys += '\n' + LanguageNames::filterKey(language);
    }
    languages = names;
    QString const folded = FoldedText::fold(of.title());
    QString const filter = folded + keys;
    QString const sort = FoldedText::sortKey(folded);
    bool const hasChanged = filter != filterKey || sort != sortKey;
    filterKey = filter;
    sortKey = sort;
    return hasChanged;
}

bool ChannelListWidgetModelRow::isForSale() const
{
    return description.channelType() == ChannelDescription::PayPerViewChannel && !description.purchased() &&
           !description.purchaseUrl().isEmpty();
}

bool ChannelListWidgetModelRow::isDeletable() const
{
    constexpr int types = ChannelDescription::SecureChannel | ChannelDescription::PublicChannel |
                          ChannelDescription::UserChannel | ChannelDescription::UserStreamChannel |
                          ChannelDescription::FileChannel;
    return (description.channelType() & types) != 0;
}

QString ChannelListWidgetModelRow::subtitle() const
{
    if (isForSale())
        return QCoreApplication::translate("ChannelListWidget", "For sale: click to purchase");
    if (!description.isAvailable())
        return ChannelDescription::toLine(description.unavailableReason().left(maximumShown)).simplified();
    return summary;
}
