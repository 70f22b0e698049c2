#pragma once

#include "TestEvent.h"

#include <QAbstractTableModel>
#include <QDateTime>
#include <QList>

/// What test mode has found out, the newest last; the oldest go when there are too many. Main thread only.
class TestEventModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Name, What };
    static constexpr int columns = What + 1;
    static constexpr int mostEvents = 10000;

    using QAbstractTableModel::QAbstractTableModel;

    void add(TestEvent const& event, QDateTime const& time);
    void clear();
    int failures() const { return _failures; }

    /// All of it for spreadsheets (RFC 4180), in UTF-8. Titles come from outside: none begins a formula.
    QByteArray csv() const;

    int rowCount(QModelIndex const& parent = {}) const override;
    int columnCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QDateTime time;
        TestEvent event;
    };

    QString words(Row const& row) const;

    QList<Row> _rows;
    int _failures = 0;
};
