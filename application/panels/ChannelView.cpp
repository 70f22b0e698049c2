#include "ChannelView.h"

#include "ChannelRowPainter.h"
#include "Look.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleOption>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

constexpr int nameColumn = 2; // Never hidden.

bool isMovement(int key)
{
    constexpr int keys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End};
    return std::ranges::find(keys, key) != std::end(keys);
}

} // namespace

void ChannelHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    bool const isWide = fontMetrics().horizontalAdvance(option->text) + 2 * Look::grid <= sectionSize(section);
    if (isWide)
        option->icon = {};
    else if (!option->icon.isNull())
        option->text.clear();
    option->textAlignment = QStyle::visualAlignment(layoutDirection(), option->textAlignment);
}

ChannelView::ChannelView(QWidget* parent) : QTreeView(parent)
{
    setHeader(new ChannelHeader(Qt::Horizontal, this));
    header()->setSectionsClickable(true);
    header()->setHighlightSections(false);
    header()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
    header()->setSortIndicatorShown(true);
    header()->setMinimumSectionSize(Look::smallIcon);
}

void ChannelView::arrangeColumns(int state, int second)
{
    _stateWidth = state;
    _secondWidth = second;
    header()->setStretchLastSection(true);
    header()->resizeSection(0, state);
    header()->resizeSection(1, second);
    fitColumns();
}

void ChannelView::fitColumns()
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    // As if the scroll bar were there: a filter that leaves few rows rearranges nothing.
    int const width = this->width() - verticalScrollBar()->sizeHint().width();
    bool const isRoomy = width - _stateWidth - _secondWidth >= ChannelRowPainter::leastWidth(option);
    if (isRoomy == hasStateColumn())
        return;
    setColumnHidden(0, !isRoomy);
    emit stateColumnChanged(isRoomy);
}

void ChannelView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    fitColumns();
}

void ChannelView::addSortMenu(QMenu& menu)
{
    QMenu* const columns = menu.addMenu(tr("Sort by"));
    for (int column = 0; column < model()->columnCount(); ++column) {
        QAction* const entry =
            columns->addAction(model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        bool const isSorted = header()->sortIndicatorSection() == column;
        bool const isAscending = isSorted && header()->sortIndicatorOrder() == Qt::AscendingOrder;
        entry->setCheckable(true);
        entry->setChecked(isSorted);
        connect(entry, &QAction::triggered, this,
                [this, column, order = isAscending ? Qt::DescendingOrder : Qt::AscendingOrder] {
                    sortByColumn(column, order);
                });
    }
}

ChannelView::Place ChannelView::place() const
{
    QModelIndex const top = indexAt({viewport()->width() / 2, 0});
    return {top, top.isValid() ? visualRect(top).top() : 0, currentIndex(), currentIndex().row()};
}

void ChannelView::restore(Place const& place)
{
    if (place.top.isValid() && verticalScrollBar()->value() > 0) {
        int const now = visualRect(place.top).top();
        verticalScrollBar()->setValue(verticalScrollBar()->value() + now - place.offset);
    }
    if (place.currentRow >= 0 && !place.current.isValid() && model()->rowCount() > 0)
        setCurrentIndex(model()->index(std::min(place.currentRow, model()->rowCount() - 1), nameColumn));
    QModelIndex const current = currentIndex();
    if (current.isValid() && !selectionModel()->isRowSelected(current.row(), {}))
        selectionModel()->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

ChannelView::Request ChannelView::requestOf(QKeyEvent const* event)
{
    Qt::KeyboardModifiers const modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier) {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            return &ChannelView::addRequested;
        return event->key() == Qt::Key_D ? &ChannelView::favouriteRequested : nullptr;
    }
    if (modifiers != Qt::NoModifier)
        return nullptr;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return &ChannelView::playRequested;
    case Qt::Key_Delete:
        return &ChannelView::deleteRequested;
    case Qt::Key_Space:
        return &ChannelView::previewRequested;
    default:
        return nullptr;
    }
}

/// With the focus here these keys are the list's, whatever else they may be in the window.
bool ChannelView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && requestOf(static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

void ChannelView::keyPressEvent(QKeyEvent* event)
{
    Request const request = requestOf(event);
    if (request) {
        if (currentIndex().isValid() && !event->isAutoRepeat())
            emit(this->*request)(currentIndex());
        return;
    }
    bool const isVolume =
        event->modifiers() == Qt::ControlModifier && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down);
    if (isVolume) {
        event->ignore(); // The window's.
        return;
    }
    bool const isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (isPlain && !event->text().isEmpty() && event->text().at(0).isPrint())
        emit typed(event->text());
    else
        QTreeView::keyPressEvent(event);
    // Also where the list has ended: the window switches channels by some of them.
    if (isPlain && isMovement(event->key()))
        event->accept();
}

void ChannelView::mousePressEvent(QMouseEvent* event)
{
    _pressed = event->button() == Qt::LeftButton ? indexAt(event->position().toPoint()) : QModelIndex();
    QTreeView::mousePressEvent(event);
}

void ChannelView::mouseReleaseEvent(QMouseEvent* event)
{
    QPersistentModelIndex const pressed = std::exchange(_pressed, {});
    QTreeView::mouseReleaseEvent(event);
    QPoint const point = event->position().toPoint();
    if (event->button() == Qt::LeftButton && pressed.isValid() && indexAt(point) == pressed)
        emit cellClicked(pressed, point, event->modifiers().testFlag(Qt::ControlModifier));
}

/// The first click has done it: with Ctrl the second one would take it back.
void ChannelView::mouseDoubleClickEvent(QMouseEvent* event)
{
    _pressed = QModelIndex();
    event->accept();
}

void ChannelView::contextMenuEvent(QContextMenuEvent* event)
{
    bool const isByKey = event->reason() == QContextMenuEvent::Keyboard;
    QModelIndex const index = isByKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    if (isByKey)
        scrollTo(index);
    else
        setCurrentIndex(index);
    emit menuRequested(index, isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

/// Who comes by keyboard sees where.
void ChannelView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    if (!currentIndex().isValid() && model() && model()->rowCount() > 0 && event->reason() != Qt::MouseFocusReason)
        setCurrentIndex(model()->index(0, nameColumn));
}

/// To the cell that tells the whole row to assistive technology, whichever was clicked before.
QModelIndex ChannelView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    return QTreeView::moveCursor(action, modifiers).siblingAtColumn(nameColumn);
}

QItemSelectionModel::SelectionFlags ChannelView::selectionCommand(QModelIndex const& index, QEvent const* event) const
{
    // Ctrl means another click, never a row without a selection.
    if (event && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress) && index.isValid())
        return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
    return QTreeView::selectionCommand(index, event);
}
