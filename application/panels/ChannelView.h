#pragma once

#include <QHeaderView>
#include <QPersistentModelIndex>
#include <QTreeView>

class QMenu;

/// A header of which a column that is too narrow for its text shows its icon, if it has one. Main thread only.
class ChannelHeader : public QHeaderView
{
    Q_OBJECT

public:
    using QHeaderView::QHeaderView;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
};

/// A list of channels with columns, a channel to a row: what clicks and keys on it ask for, as signals. One row is
/// current, and selected. Main thread only.
class ChannelView : public QTreeView
{
    Q_OBJECT

public:
    explicit ChannelView(QWidget* parent = nullptr);

    /// What is to stay in sight while the model changes, and how far from the top it is.
    struct Place {
        QPersistentModelIndex top;
        int offset = 0; ///< Of the row's top from that of the view.
        QPersistentModelIndex current = {};
        int currentRow = -1; ///< Where it was.
    };
    /// The columns in front are as wide as their contents, as far as the last one has room beside them: the first one
    /// is hidden where it has not. `state` and `second` are the widths of the two.
    void arrangeColumns(int state, int second);
    bool hasStateColumn() const { return !isColumnHidden(0); }

    /// Adds a menu of the columns to sort by, as their headers do, which no key reaches.
    void addSortMenu(QMenu& menu);

    Place place() const;
    /// Has the row where it was, and the current row selected; if that has gone, what stands in its place.
    void restore(Place const& place);

signals:
    void stateColumnChanged(bool isShown);
    /// A press and a release of the left button on one cell; the second click of two is none.
    void cellClicked(QModelIndex index, QPoint point, bool isModifierHeld);
    void playRequested(QModelIndex index);
    void addRequested(QModelIndex index);
    void deleteRequested(QModelIndex index);
    void previewRequested(QModelIndex index);
    void favouriteRequested(QModelIndex index);
    void menuRequested(QModelIndex index, QPoint globalPoint);
    /// Letters, which mean a search.
    void typed(QString text);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(QModelIndex const& index,
                                                         QEvent const* event) const override;

private:
    /// What a key of the list asks for; null for others.
    using Request = void (ChannelView::*)(QModelIndex);
    static Request requestOf(QKeyEvent const* event);

    void fitColumns();

    QPersistentModelIndex _pressed;
    int _stateWidth = 0;
    int _secondWidth = 0;
};
