#include "ChatPage.h"

#include "AppData.h"
#include "ColourButton.h"
#include "Look.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

namespace
{

/// The palette's own names, as the settings file has them.
constexpr char const* chatColourNames[] = {
    QT_TRANSLATE_NOOP("ChatColours", "Room Name"),   QT_TRANSLATE_NOOP("ChatColours", "Your Alias"),
    QT_TRANSLATE_NOOP("ChatColours", "Other Alias"), QT_TRANSLATE_NOOP("ChatColours", "Ignored Alias"),
    QT_TRANSLATE_NOOP("ChatColours", "Admin Alias"), QT_TRANSLATE_NOOP("ChatColours", "Bot Alias"),
    QT_TRANSLATE_NOOP("ChatColours", "Timestamp"),   QT_TRANSLATE_NOOP("ChatColours", "System"),
    QT_TRANSLATE_NOOP("ChatColours", "Action"),      QT_TRANSLATE_NOOP("ChatColours", "Link"),
};

QString shownColourName(QString const& name)
{
    return QCoreApplication::translate("ChatColours", name.toUtf8().constData());
}

QColor colourOf(QList<ChatColour> const& colours, char const* name, QColor ChatColour::*kind)
{
    for (ChatColour const& colour : colours)
        if (colour.name == QLatin1String(name))
            return colour.*kind;
    return {};
}

} // namespace

ChatPage::ChatPage(AppData& appData) : PreferencesPage(appData)
{
    addSection(tr("Text"));
    addNumber(tr("&Size of the text:"), &SettingsValues::chatFontSize, tr(" pt"));
    addSample();
    addSection(tr("Colours"));
    addColours();
}

void ChatPage::addSample()
{
    _sample = new QLabel(this);
    _sample->setTextFormat(Qt::RichText);
    _sample->setWordWrap(true);
    _sample->setAutoFillBackground(true);
    _sample->setBackgroundRole(QPalette::Base);
    _sample->setFrameShape(QFrame::StyledPanel);
    _sample->setMargin(Look::grid);
    _sample->setAccessibleName(tr("Sample of a chat"));
    addLine(_sample);
    binding().bind<int>(&SettingsValues::chatFontSize, [this](int const&) { showSample(); });
}

void ChatPage::showSample()
{
    AppSettings const& settings = appData().settings;
    QColor ChatColour::*const kind = settings.showWindowFrame() ? &ChatColour::native : &ChatColour::skin;
    auto const coloured = [&settings, kind](char const* name, QString const& text) {
        return QStringLiteral("<font color=\"%1\">%2</font> ")
            .arg(colourOf(settings.chatColours(), name, kind).name(), text.toHtmlEscaped());
    };
    _sample->setText(QStringLiteral("<div style=\"font-size:%1pt\">").arg(settings.chatFontSize()) +
                     coloured("Timestamp", "20:15") + coloured("Your Alias", settings.chatNick() + ':') +
                     tr("Good evening!").toHtmlEscaped() + "<br>" + coloured("Timestamp", "20:16") +
                     coloured("Other Alias", "Ann:") + coloured("Link", "https://example.com") + "</div>");
}

void ChatPage::addColours()
{
    auto* const place = new QWidget(this);
    place->setAccessibleName(tr("Colours"));
    auto* const grid = new QGridLayout(place);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(Look::halfGrid);
    QList<QPair<QString, QColor ChatColour::*>> const kinds = {{tr("Window"), &ChatColour::native},
                                                               {tr("Skin"), &ChatColour::skin}};
    for (int column = 0; column < kinds.size(); ++column)
        grid->addWidget(new QLabel(kinds.at(column).first, place), 0, column + 1);
    QList<std::function<void()>> shows;
    int row = 0;
    for (char const* const name : chatColourNames) {
        grid->addWidget(new QLabel(shownColourName(name), place), ++row, 0);
        for (int column = 0; column < kinds.size(); ++column) {
            QColor ChatColour::*const kind = kinds.at(column).second;
            auto* const button =
                new ColourButton(QString("%1, %2").arg(shownColourName(name), kinds.at(column).first), place);
            grid->addWidget(button, row, column + 1);
            shows.append([this, button, name, kind] {
                button->setColour(colourOf(appData().settings.chatColours(), name, kind));
            });
            button->setProperty("colourName", name);
            button->setProperty("skin", kind == &ChatColour::skin);
        }
    }
    grid->setColumnStretch(static_cast<int>(kinds.size()) + 1, 1);
    auto const store =
        binding().bind<QList<ChatColour>>(&SettingsValues::chatColours, [this, shows](QList<ChatColour> const&) {
            for (auto const& show : shows)
                show();
            showSample();
        });
    for (ColourButton* const button : place->findChildren<ColourButton*>())
        connect(button, &ColourButton::chosen, this, [this, button, store](QColor const& chosen) {
            QList<ChatColour> colours = appData().settings.chatColours();
            for (ChatColour& colour : colours)
                if (colour.name == button->property("colourName").toString())
                    (button->property("skin").toBool() ? colour.skin : colour.native) = chosen;
            store(colours);
        });
    addLine(place);
}
