#pragma once

#include <QLabel>

/// One line of plain text that is cut with an ellipsis where there is no room for it; the whole is its tool tip then,
/// and its accessible name always. setFullText() in place of setText(). Main thread only.
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget* parent = nullptr, Qt::TextElideMode mode = Qt::ElideRight);

    void setFullText(QString const& text);
    QString fullText() const { return _text; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void elide();

    QString _text;
    Qt::TextElideMode const _mode;
};
