#pragma once

#include "ChannelDescription.h"

#include <QAbstractListModel>
#include <QList>

class ChannelDescriptionProvider;

/// A provider's descriptions as an item model. Holds what the provider had at its last signal, so that the model's
/// rows change only with a reset.
class ChannelDescriptionList : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Besides title (display), logo (decoration) and summary (tool tip).
    enum Role {
        AvailableRole = 32,
        FavouriteRole = 33,
        SummaryRole = 34,
        AudioLanguagesRole = 35, ///< Codes of ISO 639-3 as a string list, the null language left out.
    };

    /// The provider is borrowed, and outlives the model; its signals are followed.
    explicit ChannelDescriptionList(ChannelDescriptionProvider& provider, QObject* parent = nullptr);

    int rowCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

public slots:
    /// Resets the model to what the provider has now.
    void onModelReset();

private:
    void takeDescriptions();
    void onLogoUpdated(ChannelDescription const& description);

    ChannelDescriptionProvider& _provider;
    QList<ChannelDescription> _descriptions;
};
