#pragma once

#include "Icons.h"
#include "OmbravisionDialog.h"

#include <QList>

class QLabel;
class QStackedWidget;

/// Five pages about what one can do, with a picture each. Shown once by itself, and from the menu. Main thread only.
class TutorialDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    TutorialDialog(AppData& appData, QWidget* parent);

    int pageCount() const;

protected:
    void showEvent(QShowEvent* event) override;
    void done(int result) override;

private:
    void addPage(QList<Icon> const& picture, QString const& title, QString const& text);
    void goTo(int page);

    QStackedWidget* _pages;
    QLabel* _place;
    QPushButton* _back;
    QPushButton* _next;
};
