#include "ChannelDescriptionList.h"

#include "ChannelDescriptionProvider.h"

ChannelDescriptionList::ChannelDescriptionList(ChannelDescriptionProvider& provider, QObject* parent)
    : QAbstractListModel(parent), _provider(provider)
{
    connect(&provider, &ChannelDescriptionProvider::channelsUpdated, this, &ChannelDescriptionList::onModelReset);
    connect(&provider, &ChannelDescriptionProvider::channelLogoUpdated, this, &ChannelDescriptionList::onLogoUpdated);
    takeDescriptions();
}

int ChannelDescriptionList::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_descriptions.size());
}

QVariant ChannelDescriptionList::data(QModelIndex const& index, int role) const
{
    if (!index.isValid() || index.row() >= _descriptions.size())
        return {};
    ChannelDescription const& description = _descriptions.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return description.title();
    case Qt::DecorationRole:
        return description.logo();
    case Qt::ToolTipRole:
    case SummaryRole:
        return description.summary();
    case AvailableRole:
        return description.isAvailable();
    case FavouriteRole:
        return description.isFavourite();
    case AudioLanguagesRole: {
        QStringList codes;
        for (LanguageId const& language : description.audioLanguages())
            if (!language.isNull())
                codes.append(language.toIso639_3());
        return codes;
    }
    default:
        return {};
    }
}

QVariant ChannelDescriptionList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    return (orientation == Qt::Horizontal ? QStringLiteral("Column %1") : QStringLiteral("Row %1")).arg(section);
}

void ChannelDescriptionList::onModelReset()
{
    beginResetModel();
    takeDescriptions();
    endResetModel();
}

void ChannelDescriptionList::takeDescriptions()
{
    _descriptions.clear();
    long long const count = _provider.numChannels();
    _descriptions.reserve(count);
    for (long long i = 0; i < count; ++i)
        _descriptions.append(_provider.descriptionAt(i));
}

void ChannelDescriptionList::onLogoUpdated(ChannelDescription const& description)
{
    for (qsizetype row = 0; row < _descriptions.size(); ++row) {
        if (_descriptions.at(row).id() != description.id())
            continue;
        _descriptions[row].setLogo(description.packedLogo());
        QModelIndex const changed = index(static_cast<int>(row));
        emit dataChanged(changed, changed, {Qt::DecorationRole});
    }
}
