#pragma once

#include "GLIndicatorBar.h"
#include "GLLabelControl.h"
#include "GLPanelControl.h"

class AppData;

/// The top of the overlay: what plays and how it goes, what waits for the viewer, the way to sign in and to the tabs.
class GLTitleBar : public GLPanelControl
{
    Q_OBJECT

public:
    static constexpr int height = 52; ///< Pixels.

    GLTitleBar(AppData& appData, GLControlStyle const& style, QObject* parent = nullptr);

    void setTitle(QString const& title);
    QString title() const { return _title.text(); }
    /// Has assistive technology read the title out.
    void announceTitle();
    /// A state, or with `isError` what has gone wrong; empty for none.
    void setState(QString const& text, bool isError);

    GLIndicatorBar& indicators() { return _indicators; }
    GLButtonControl& signInButton() { return _signIn; }

    /// Brings the buttons up to date with who is signed in and whether the tabs are shown.
    void updateButtons();

    void recalcLayout(double scale) override;

private:
    AppData& _appData;
    GLLabelControl _title;
    GLLabelControl _state;
    GLIndicatorBar _indicators;
    GLButtonControl _signIn;
    GLButtonControl _tabs;
};
