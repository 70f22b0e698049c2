#pragma once

#include <QLabel>

/// Words with links: the tab key goes to the label, then through its links, and on. Backwards the label is left at
/// once, where QLabel alone holds the focus for ever. Main thread only.
class LinkLabel : public QLabel
{
    Q_OBJECT

public:
    explicit LinkLabel(QWidget* parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;
};
