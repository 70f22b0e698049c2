#pragma once

#include <QWidget>

#include <optional>

class ElidedLabel;
class QHBoxLayout;
class QToolButton;

/// The title of a window that has no frame: name, what closes it and, where that makes sense, what makes it smaller
/// and larger. The window is moved by it; a double click maximises a window that can be. Nothing of it takes the
/// focus: menus and keys do the same. Main thread only.
class TitleBar : public QWidget
{
    Q_OBJECT

public:
    enum class Buttons { Close, All };

    /// Belongs to the window.
    TitleBar(QWidget& window, Buttons buttons);

    /// What stands before the title, such as a menu bar.
    QHBoxLayout* leading() const { return _leading; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* addButton(QString const& name);
    void followWindow();
    void toggleMaximised();

    QWidget& _window;
    bool const _canMaximise;
    QHBoxLayout* _leading;
    ElidedLabel* _title;
    QToolButton* _maximise = nullptr;
    std::optional<QPoint> _pressed; ///< Where a drag may begin.
};
