#pragma once

#include "LanguageId.h"

#include <QList>
#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <QStringList>

/// Those rows of a ChannelDescriptionList that pass all filters; at first every row does. Sorted by title, in the
/// order of the viewer's locale, once it is told to sort.
class FilterableChannelDescriptionList : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// Whether only channels pass that may be opened.
    void setAvailableFilter(bool available);

    /// Whether only favourites pass.
    void setFavouritesFilter(bool favourites);

    /// What a title has to match somewhere; nothing matches an expression that is not valid.
    void setTitleFilter(QRegularExpression const& title);

    /// The languages of which a channel has to have one. An empty list, and one with the null language, lets all
    /// pass.
    void setAudioLanguagesFilter(QList<LanguageId> const& languages);

protected:
    bool filterAcceptsRow(int row, QModelIndex const& parent) const override;
    bool lessThan(QModelIndex const& left, QModelIndex const& right) const override;

private:
    bool _available = false;
    bool _favourites = false;
    QRegularExpression _title;
    QList<LanguageId> _languages;
};
