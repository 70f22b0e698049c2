#include "EffectEditor.h"

#include "GlslHighlighter.h"
#include "Look.h"
#include "PlainToolTip.h"

#include <QFontDatabase>
#include <QHelpEvent>
#include <QPainter>
#include <QTextBlock>
#include <QToolTip>

#include <algorithm>

class EffectEditor::Margin : public QWidget
{
public:
    explicit Margin(EffectEditor& editor) : QWidget(&editor), _editor(editor)
    {
        setAccessibleName(tr("Line numbers"));
    }

protected:
    void paintEvent(QPaintEvent* event) override { _editor.paintMargin(event); }

private:
    EffectEditor& _editor;
};

EffectEditor::EffectEditor(QWidget* parent)
    : QPlainTextEdit(parent), _highlighter(new GlslHighlighter(document())), _margin(new Margin(*this))
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(this->font().pointSizeF());
    setFont(font);
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true); // Nobody gets caught in here.
    constexpr int tabLetters = 4;
    setTabStopDistance(tabLetters * fontMetrics().horizontalAdvance(' '));
    setLayoutDirection(Qt::LeftToRight); // The language is.
    connect(this, &QPlainTextEdit::blockCountChanged, this, &EffectEditor::placeMargin);
    connect(this, &QPlainTextEdit::updateRequest, _margin, [this](QRect const& rectangle, int dy) {
        if (dy != 0)
            _margin->scroll(0, dy);
        else
            _margin->update(0, rectangle.y(), _margin->width(), rectangle.height());
    });
    adoptPalette();
    placeMargin();
}

int EffectEditor::marginWidth() const
{
    int const digits = std::max(2, static_cast<int>(QString::number(blockCount()).size()));
    return digits * fontMetrics().horizontalAdvance('9') + 2 * Look::grid;
}

void EffectEditor::placeMargin()
{
    setViewportMargins(marginWidth(), 0, 0, 0);
    QRect const inside = contentsRect();
    _margin->setGeometry(inside.left(), inside.top(), marginWidth(), inside.height());
}

void EffectEditor::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    placeMargin();
}

void EffectEditor::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        adoptPalette();
    else if (event->type() == QEvent::FontChange && _margin)
        placeMargin();
}

void EffectEditor::adoptPalette()
{
    constexpr int middle = 128;
    _highlighter->setDark(palette().color(QPalette::Base).lightness() < middle);
}

void EffectEditor::paintMargin(QPaintEvent const* event)
{
    QPainter painter(_margin);
    painter.fillRect(event->rect(), palette().color(QPalette::AlternateBase));
    painter.setFont(font());
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    for (; block.isValid() && top <= event->rect().bottom(); block = block.next()) {
        double const height = blockBoundingRect(block).height();
        CompilerMessage const* const message = messageAt(block.blockNumber() + 1);
        QRectF const row(0.0, top, _margin->width(), height);
        if (message)
            painter.fillRect(row, message->isWarning ? QColor(0xb8, 0x6e, 0x00) : QColor(0xb0, 0x20, 0x20));
        painter.setPen(message ? QColor(Qt::white) : palette().color(QPalette::PlaceholderText));
        painter.drawText(row.adjusted(0, 0, -Look::grid, 0), Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(block.blockNumber() + 1));
        top += height;
    }
}

CompilerMessage const* EffectEditor::messageAt(int line) const
{
    auto const found = std::ranges::find(_messages, line, &CompilerMessage::line);
    return found == _messages.end() ? nullptr : &*found;
}

void EffectEditor::setMessages(QList<CompilerMessage> const& messages)
{
    _messages = messages;
    showMessages();
}

void EffectEditor::showMessages()
{
    QList<QTextEdit::ExtraSelection> marks;
    for (CompilerMessage const& message : _messages) {
        QTextBlock const block = document()->findBlockByNumber(message.line - 1);
        if (message.line <= 0 || !block.isValid())
            continue;
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(block);
        mark.cursor.select(QTextCursor::BlockUnderCursor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(message.isWarning ? QColor(0xd0, 0x80, 0x00) : QColor(0xe0, 0x30, 0x30));
        marks.append(mark);
    }
    setExtraSelections(marks);
    _margin->update();
}

void EffectEditor::goTo(int line)
{
    QTextBlock const block = document()->findBlockByNumber(line - 1);
    if (block.isValid())
        setTextCursor(QTextCursor(block));
    centerCursor();
    setFocus();
}

bool EffectEditor::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::event(event);
    auto const* const help = static_cast<QHelpEvent*>(event);
    QPoint const point = viewport()->mapFrom(this, help->pos());
    CompilerMessage const* const message = messageAt(cursorForPosition(point).blockNumber() + 1);
    if (message)
        QToolTip::showText(help->globalPos(), plainToolTip(message->text), this);
    else
        QToolTip::hideText();
    return true;
}
