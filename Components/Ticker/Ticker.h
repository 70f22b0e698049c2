#pragma once

#include <QLabel>
#include <QStringList>
#include <QTimer>

/// A line of texts that scrolls to the left. Each text enters at the right edge, follows the one before it, and is
/// forgotten when it has left at the left edge. An empty or hidden ticker costs no time.
class Ticker : public QLabel
{
    Q_OBJECT

public:
    explicit Ticker(QWidget* parent = nullptr);

    /// Adds a text at the end, on one line, as plain text. Blank text is ignored.
    void addText(QString const& text);

    /// Draws one of the pending texts in the palette's highlight colour: 0 is the foremost. It stays highlighted as
    /// those before it leave. A place without a text, such as -1, highlights none.
    void setHighlight(int index);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public slots:
    /// Moves the texts on by one step.
    void onTimer();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int left() const;
    int advanceOf(QString const& text) const;
    void run();

    QTimer _timer;
    QStringList _texts;  ///< Pending texts, the foremost first.
    int _travelled = 0;  ///< How far the foremost text has come from the right edge, in pixels.
    int _highlight = -1; ///< The place of the highlighted text in _texts.
};
