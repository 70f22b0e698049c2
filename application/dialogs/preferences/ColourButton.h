#pragma once

#include <QColor>
#include <QPushButton>

/// A button that shows a colour and lets the viewer choose another, which counts while one chooses. Main thread only.
class ColourButton : public QPushButton
{
    Q_OBJECT

public:
    /// What has the colour, in words.
    ColourButton(QString const& name, QWidget* parent);

    QColor colour() const { return _colour; }
    void setColour(QColor const& colour);

signals:
    void chosen(QColor colour);

private:
    void choose();

    QString const _name;
    QColor _colour;
};
