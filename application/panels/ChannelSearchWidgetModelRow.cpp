#include "ChannelSearchWidgetModelRow.h"

#include "ChannelDocumentFields.h"
#include "ChannelTitle.h"
#include "FoldedText.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace
{

constexpr qsizetype maximumFound = 256;
constexpr qsizetype maximumOfField = 4096;
constexpr double bestRating = 5.0;

QString flag(bool on)
{
    return on ? QStringLiteral("true") : QStringLiteral("false");
}

/// The same fields as in the directory's document, so that what plays as a look at it plays on when it is added.
ChannelDocumentReader::Entry entryOf(SoapUserChannel const& found)
{
    using Fields = ChannelDocumentFields;
    Fields fields;
    fields.set(Fields::UniqueShortName, found.id);
    fields.set(Fields::Name, found.name.left(maximumOfField));
    fields.set(Fields::Description, found.description.left(maximumOfField));
    fields.set(Fields::LatteUri, found.uri);
    fields.set(Fields::LogoUrl, found.logoUrl);
    fields.set(Fields::HasAlerts, flag(found.hasAlerts));
    fields.set(Fields::HasChat, flag(found.hasChat));
    fields.set(Fields::ShowBanners, flag(found.showBanners));
    fields.set(Fields::ChatroomName, found.chatroomName);
    fields.set(Fields::AlertsTopic, found.alertsTopic);
    fields.set(Fields::ChannelType, found.channelType);
    fields.set(Fields::AutobuzzEnabled, flag(found.autobuzzEnabled));
    fields.set(Fields::RepeatedAutobuzz, flag(found.repeatedAutobuzz));
    fields.set(Fields::AutobuzzInterval, QString::number(found.autobuzzInterval));
    fields.set(Fields::ViewerAdded, flag(true));
    return fields.toEntry();
}

} // namespace

ChannelSearchWidgetModelRow::ChannelSearchWidgetModelRow(SoapUserChannel const& found)
    : id(found.id),
      rating(std::isfinite(found.ratingAverage) ? std::clamp(found.ratingAverage, 0.0, bestRating) : 0.0)
{
    ChannelDocumentReader::Entry const entry = entryOf(found);
    description = entry.description;
    logoUri = entry.logo;
    description.setRootId(found.rootId.isEmpty() ? found.id : found.rootId);
    description.setViewerAdded(false);
    if (description.streamDescriptions().constFirst().uri().isNull()) {
        description.setAvailable(false);
        description.setUnavailableReason(
            QCoreApplication::translate("ChannelSearchWidget", "The channel has no address that can be opened."));
    }
    title = ChannelTitle::shown(description.title(), maximumFound);
    summary = ChannelDescription::toLine(description.summary().left(maximumFound)).simplified();
    sortKey = FoldedText::sortKey(FoldedText::fold(title));
}
