#pragma once

#include <QWidget>

class ChannelListWidgetProxyModel;
class QComboBox;
class QLineEdit;
class QToolButton;

/// What stands above the list of channels: what of it is shown, and its renewal. Main thread only.
class ChannelListFilters : public QWidget
{
    Q_OBJECT

public:
    /// The model that filters is borrowed.
    explicit ChannelListFilters(ChannelListWidgetProxyModel* shown, QWidget* parent = nullptr);

    /// Whether there is anything to filter, and whether the list can be asked for again.
    void enable(bool filters, bool refresh);
    /// Everything is shown.
    void clear();
    /// Goes on with what was typed elsewhere.
    void type(QString const& text);
    /// What the Tab key goes through.
    QWidgetList inOrder() const;

signals:
    /// The model shows other rows.
    void changed();
    void refreshClicked();
    /// By keys in the filter: the list itself is meant, or its current or first channel.
    void listWanted();
    void channelWanted(bool isBeside);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createFilter();
    void createKinds();
    QToolButton* addButton(char const* name, QString const& text);
    void arrange();

    ChannelListWidgetProxyModel* const _shown;
    QLineEdit* _filter = nullptr;
    QComboBox* _kinds = nullptr;
    QToolButton* _favouritesOnly = nullptr;
    QToolButton* _refresh = nullptr;
};
