#include "FilterableChannelDescriptionList.h"

#include "ChannelDescriptionList.h"

#include <algorithm>

void FilterableChannelDescriptionList::setAvailableFilter(bool available)
{
    _available = available;
    invalidateFilter();
}

void FilterableChannelDescriptionList::setFavouritesFilter(bool favourites)
{
    _favourites = favourites;
    invalidateFilter();
}

void FilterableChannelDescriptionList::setTitleFilter(QRegularExpression const& title)
{
    _title = title;
    invalidateFilter();
}

void FilterableChannelDescriptionList::setAudioLanguagesFilter(QList<LanguageId> const& languages)
{
    _languages = languages;
    invalidateFilter();
}

bool FilterableChannelDescriptionList::filterAcceptsRow(int row, QModelIndex const& parent) const
{
    QModelIndex const index = sourceModel()->index(row, 0, parent);
    if (_available && !index.data(ChannelDescriptionList::AvailableRole).toBool())
        return false;
    if (_favourites && !index.data(ChannelDescriptionList::FavouriteRole).toBool())
        return false;
    if (!_title.isValid() || !index.data(Qt::DisplayRole).toString().contains(_title))
        return false;
    if (_languages.isEmpty())
        return true;
    QStringList const codes = index.data(ChannelDescriptionList::AudioLanguagesRole).toStringList();
    return std::ranges::any_of(_languages, [&codes](LanguageId const& language) {
        return language.isNull() || codes.contains(language.toIso639_3());
    });
}

bool FilterableChannelDescriptionList::lessThan(QModelIndex const& left, QModelIndex const& right) const
{
    return QString::localeAwareCompare(left.data().toString(), right.data().toString()) < 0;
}
