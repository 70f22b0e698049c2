#include "GLTitleBar.h"

#include "AppData.h"
#include "GLControlAccessible.h"
#include "Look.h"
#include "OverlayStyle.h"
#include "SignIn.h"

#include <QAction>

GLTitleBar::GLTitleBar(AppData& appData, GLControlStyle const& style, QObject* parent)
    : GLPanelControl("Title Bar", style, parent), _appData(appData), _title("Title", style), _state("State", style),
      _indicators(style), _signIn("Sign In Button", style), _tabs("Tabs Button", style)
{
    setLabel(tr("What plays"));
    _title.setFont(OverlayStyle::titleFont());
    _title.setPassedThrough(true);
    _state.setPassedThrough(true);
    _signIn.setIcon(OverlayStyle::icon(Icon::User));
    _signIn.setText(tr("Sign In"));
    _tabs.setIcon(OverlayStyle::icon(Icon::Menu));
    for (GLControl* const control :
         std::initializer_list<GLControl*>{&_title, &_state, &_indicators, &_signIn, &_tabs})
        addControl(control);
    connect(&_indicators, &GLIndicatorBar::widthChanged, this, [this] { recalcLayout(scale()); });
    connect(&_tabs, &GLButtonControl::clicked, this,
            [this] { _appData.settings.setShowTabs(!_appData.settings.showTabs()); });
    updateButtons();
}

void GLTitleBar::setTitle(QString const& title)
{
    _title.setText(title);
    recalcLayout(scale());
}

void GLTitleBar::setState(QString const& text, bool isError)
{
    _state.setText(text);
    _state.setColour(isError ? style().alert : style().dimText);
    recalcLayout(scale());
    if (isError)
        GLControlAccessible::announce(_state);
}

void GLTitleBar::announceTitle()
{
    GLControlAccessible::announce(_title);
}

void GLTitleBar::updateButtons()
{
    bool const shows = _appData.settings.showTabs();
    _tabs.setChecked(shows);
    _tabs.setLabel(shows ? tr("Hide the channels beside the picture") : tr("Show the channels beside the picture"));
    recalcLayout(scale());
}

void GLTitleBar::recalcLayout(double scale)
{
    QRectF const row =
        QRectF(QPointF(), geometry().size()).adjusted(Look::grid, Look::grid, -Look::grid, -Look::grid);
    SignIn const* const signIn = _appData.signIn();
    QAction const* const action = _appData.settings.action(MenuAction::SignIn);
    bool const canSignIn = signIn && !signIn->isSignedIn() && !signIn->isSigningIn() && action && action->isEnabled();
    double const titleWidth = std::min(_title.preferredSize().width(), row.width() / 2.0);
    double const indicators = _indicators.preferredWidth();
    arrange({{.control = &_title, .width = titleWidth, .importance = 5, .gap = Look::halfGrid},
             {.control = &_state, .width = 0.0, .importance = 4, .stretch = 1.0, .gap = 2.0 * Look::grid},
             {.control = &_indicators, .width = indicators, .importance = 3, .isWanted = indicators > 0.0},
             {.control = &_signIn, .width = _signIn.preferredWidth(), .importance = 2, .isWanted = canSignIn},
             {.control = &_tabs,
              .width = Look::target,
              .importance = 1,
              .gap = Look::halfGrid,
              .isWanted = !_appData.settings.showFullScreen()}},
            row);
    GLPanelControl::recalcLayout(scale);
}
