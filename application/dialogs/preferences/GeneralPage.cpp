#include "GeneralPage.h"

#include "AppData.h"
#include "Translations.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
constexpr int longestPath = 4096;
}

GeneralPage::GeneralPage(AppData& appData) : PreferencesPage(appData)
{
    using V = SettingsValues;
    using StartPage = V::StartPage;
    addSection(tr("Start"));
    addChoice<int>(tr("&First, play:"), &V::startPage,
                   {{tr("what played last"), static_cast<int>(StartPage::LastChannels)},
                    {tr("the first channel"), static_cast<int>(StartPage::DefaultChannel)},
                    {tr("nothing"), static_cast<int>(StartPage::Nothing)}});
    addNote(
        tr("Where the desktop keeps a list of its own of what starts with it, add \"ombravision -startup\" there."));
    addLanguage();
    addSection(tr("Window"));
    addSwitch(tr("&Always on top of other windows"), &V::alwaysOnTop);
    addSwitch(tr("Show the &menu bar"), &V::showMenuBar);
    addSwitch(tr("Show the &channel bar while the pointer is over the picture"), &V::showChannelBarOnMouseOver);
    addSwitch(tr("Show &tips over the picture"), &V::showVideoTips);
    addSection(tr("Screenshots"));
    addScreenshotDirectory();
}

void GeneralPage::addLanguage()
{
    QList<QPair<QString, QString>> choices = {{tr("System"), QString()}};
    for (Translations::Language const& language : Translations::languages())
        choices.append({QString::fromUtf8(language.name), language.code});
    addChoice<QString>(tr("&Language:"), &SettingsValues::language, choices);
    addNote(tr("The language changes at the next start of Ombravision."));
}

void GeneralPage::addScreenshotDirectory()
{
    auto* const place = new QWidget(this);
    auto* const row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    auto* const line = new QLineEdit(place);
    line->setMaxLength(longestPath);
    line->setPlaceholderText(appData().settings.dataDirectory() + "/Screenshots");
    line->setAccessibleName(tr("Directory of screenshots"));
    binding().bind(&SettingsValues::screenshotDirectory, line);
    auto* const choose = new QPushButton(tr("C&hoose..."), place);
    choose->setAutoDefault(false);
    row->addWidget(line, 1);
    row->addWidget(choose);
    place->setFocusProxy(line);
    addLine(tr("Save them &in:"), place);
    connect(choose, &QPushButton::clicked, this, [this, line] {
        auto* const dialog =
            new QFileDialog(this, tr("Directory of screenshots"), appData().settings.screenshotDirectory());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->setFileMode(QFileDialog::Directory);
        dialog->setOption(QFileDialog::ShowDirsOnly);
        connect(dialog, &QFileDialog::fileSelected, line, [line](QString const& path) {
            line->setText(path);
            emit line->editingFinished();
        });
        dialog->open();
    });
}
