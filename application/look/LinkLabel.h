#pragma once

#include <QLabel>

/// Words with links that the tab key goes through: the first has the focus as soon as the label has it, and backwards
/// the label is left at once, where QLabel alone holds the focus for ever. Main thread only.
class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget* parent = nullptr);

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
};
