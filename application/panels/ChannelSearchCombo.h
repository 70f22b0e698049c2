#pragma once

#include <QComboBox>
#include <QStringList>

/// Where a search is typed: with a hint while it is empty, and below it what was searched for last and what others
/// search for. Main thread only.
class ChannelSearchCombo : public QComboBox
{
    Q_OBJECT

public:
    static constexpr int maximumHistory = 10;
    static constexpr int maximumQuery = 200; ///< Letters.

    explicit ChannelSearchCombo(QWidget* parent = nullptr);

    void setSuggestions(QStringList const& suggestions);
    /// Puts a query above the others.
    void addToHistory(QString const& query);
    QStringList history() const { return _history; }
    /// Nobody else is to see what was searched for.
    void clearAll();

    /// Without white space around it.
    QString query() const;

signals:
    /// Return, or one of the list was chosen.
    void searchRequested();

private:
    void fill();

    QStringList _suggestions;
    QStringList _history;
};
