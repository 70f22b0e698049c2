#include "AboutDialog.h"

#include "AppData.h"
#include "Look.h"
#include "SupportReport.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

AboutDialog::AboutDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("About Ombravision"), parent)
{
    setObjectName("aboutDialog");
    setHeading(tr("Ombravision %1").arg(appData.settings.version()));
    auto* const row = new QHBoxLayout;
    row->setSpacing(Look::margin);
    auto* const sign = new QLabel(this);
    constexpr int side = 96;
    sign->setPixmap(QIcon(":/Resources/Ombravision.png").pixmap(side));
    sign->setAccessibleName(tr("The sign of Ombravision"));
    row->addWidget(sign, 0, Qt::AlignTop);
    auto* const words = new QVBoxLayout;
    words->setSpacing(Look::grid);
    row->addLayout(words, 1);
    auto const add = [this, words](QString const& text) {
        auto* const label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        constexpr int letters = 44;
        label->setMinimumWidth(letters * fontMetrics().averageCharWidth());
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        words->addWidget(label);
    };
    add(tr("Live internet television on your desktop."));
    add(tr("Built on %1. Each of them is free software under its own licence.")
            .arg(SupportReport::libraries().join(tr(", "))));
    words->addStretch();
    contents()->addLayout(row);
    addButton(QDialogButtonBox::Close)->setDefault(true);
}
