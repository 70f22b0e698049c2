#pragma once

#include <QLabel>
#include <QTimer>

/// A few words to the viewer over the lower edge of a widget, which go away by themselves or, where they tell of
/// something that lasts, with that.
///
/// A native window above those that it covers, since the picture is drawn past Qt. Main thread only.
class Notice : public QLabel
{
    Q_OBJECT

public:
    static constexpr int showTime = 6000; ///< ms

    /// Covers a part of `place`, which belongs to the same top-level window as the parent.
    Notice(QWidget* parent, QWidget* place);

    /// Shows a text, taken as it is, in place of the last one.
    void tell(QString const& text);
    /// Shows a text until an empty one takes it back; others may stand in its place meanwhile.
    void keep(QString const& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showText(QString const& text);
    void showKept();
    void moveIntoPlace();

    QWidget* const _place;
    QString _kept; ///< Empty for none.
    QTimer _timer;
};
