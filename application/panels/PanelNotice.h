#pragma once

#include "Icons.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

/// What a panel says in place of its list: an icon, a text, perhaps progress, perhaps a button that does something
/// about it. Main thread only.
class PanelNotice : public QWidget
{
    Q_OBJECT

public:
    explicit PanelNotice(QWidget* parent = nullptr);

    /// Shown as it is, whatever it has. Without a text for it there is no button.
    void tell(Icon icon, QString const& text, QString const& button = {});
    /// With a bar that moves: nobody knows how long it takes.
    void tellProgress(QString const& text, QString const& button = {});

signals:
    void buttonClicked();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void show(QString const& text, QString const& button);
    void drawIcon();

    Icon _shownIcon = Icon::Info;
    QLabel* const _icon;
    QLabel* const _text;
    QProgressBar* const _progress;
    QPushButton* const _button;
};
