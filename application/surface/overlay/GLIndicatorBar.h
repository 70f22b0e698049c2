#pragma once

#include "GLButtonControl.h"
#include "GLControl.h"

/// What waits for the viewer: chat and alerts. Each indicator is there only while something does.
class GLIndicatorBar : public GLControl
{
    Q_OBJECT

public:
    explicit GLIndicatorBar(GLControlStyle const& style, QObject* parent = nullptr);

    /// How many messages or alerts have come that the viewer has not seen.
    void setChatCount(int count);
    void setAlertCount(int count);

    double preferredWidth() const;
    void recalcLayout(double scale) override;

signals:
    void chatPressed();
    void alertPressed();
    /// It needs another width.
    void widthChanged();

private:
    void show(GLButtonControl& button, bool& isWanted, int count, QString const& label);

    bool _hasChat = false;
    bool _hasAlert = false;
    GLButtonControl _chat;
    GLButtonControl _alert;
};
