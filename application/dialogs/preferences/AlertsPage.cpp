#include "AlertsPage.h"

#include "AlertPreview.h"
#include "AppData.h"

#include <QPushButton>
#include <QSlider>
#include <QSpinBox>

AlertsPage::AlertsPage(AppData& appData) : PreferencesPage(appData)
{
    using V = SettingsValues;
    constexpr int second = 1000;
    addSection(tr("Tell me of"));
    addSwitch(tr("&Breaking news on my channels"), &V::showBreakingNewsAlerts);
    addSwitch(tr("&New channels"), &V::showNewChannelAlerts);
    addSwitch(tr("What is &talked about most"), &V::showBuzzAlerts);
    addSwitch(tr("&Messages of the service"), &V::showSystemAlerts);
    addSwitch(tr("&Lines of the chat"), &V::showChatMessagesAsAlerts);
    addNote(tr("The bells in the list of channels say whose breaking news you are told of."));
    addSection(tr("How"));
    addSwitch(tr("In a &window of its own"), &V::showAlertsWindow);
    addSwitch(tr("In the li&ve panel"), &V::showLivePanel);
    addSwitch(tr("As notices of the des&ktop"), &V::alertsUseGrowl);
    addNumber(tr("&Each for:"), &V::alertDisplayDuration, tr(" s"), second);
    auto* const opacity = new QSlider(Qt::Horizontal, this);
    opacity->setPageStep(10);
    binding().bind(&V::alertDisplayOpacity, opacity);
    addLine(tr("&Opacity:"), opacity);
    auto* const show = new QPushButton(tr("&Show one"), this);
    show->setAutoDefault(false);
    show->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    addLine(show);
    connect(show, &QPushButton::clicked, this, [this] {
        if (!_preview)
            _preview = new AlertPreview(this);
        AppSettings const& settings = this->appData().settings;
        _preview->present(settings.alertDisplayOpacity(), settings.alertDisplayDuration());
    });
    connect(opacity, &QSlider::valueChanged, this, [this](int value) {
        if (_preview && _preview->isVisible())
            _preview->setWindowOpacity(value / 100.0);
    });
}
