#pragma once

#include "CompilerMessages.h"

#include <QPlainTextEdit>

class GlslHighlighter;

/// A text editor for shaders: colours, line numbers at the leading edge, and messages of the compiler at their lines,
/// which are shown as tool tips there. Main thread only.
class EffectEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit EffectEditor(QWidget* parent);

    void setMessages(QList<CompilerMessage> const& messages);

    /// Puts the cursor on a line, from 1.
    void goTo(int line);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Margin;

    int marginWidth() const;
    void placeMargin();
    void paintMargin(QPaintEvent const* event);
    CompilerMessage const* messageAt(int line) const;
    void showMessages();
    void adoptPalette();

    GlslHighlighter* _highlighter;
    Margin* _margin;
    QList<CompilerMessage> _messages;
};
