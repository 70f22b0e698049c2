#include "DeleteChannelDialog.h"

#include "LinkLabel.h"
#include "Look.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr qsizetype maximumTitle = 80; // In a line of its own: a title may be one long word.
constexpr int textWidth = 52;          // Letters.
} // namespace

DeleteChannelDialog::DeleteChannelDialog(AppData& appData, QString const& title, QWidget* parent)
    : OmbravisionDialog(appData, tr("Delete Channel"), parent)
{
    setObjectName("deleteChannelDialog");
    setHeading(tr("Delete Channel"));
    QString const name = title.size() > maximumTitle ? QString(title.left(maximumTitle) + QChar(0x2026)) : title;
    auto* const text = new LinkLabel(this);
    text->setObjectName("text");
    text->setMinimumWidth(textWidth * fontMetrics().averageCharWidth());
    text->setText(
        tr("Are you sure you wish to delete the channel <b>%1</b> from My Channels?<br><br>")
            .arg(name.toHtmlEscaped()) +
        tr("<b>Note:</b> To restore a partner channel that you have deleted <a href=\"manage\">click here</a>."));
    text->setAccessibleName(tr("Are you sure you wish to delete the channel %1 from My Channels?").arg(name));
    connect(text, &QLabel::linkActivated, this, &DeleteChannelDialog::manageChannels);
    contents()->addWidget(text);
    QPushButton* const deletes = addButton(tr("Delete"), QDialogButtonBox::AcceptRole);
    deletes->setObjectName("delete");
    deletes->setAutoDefault(false);
    QPushButton* const cancel = addButton(QDialogButtonBox::Cancel);
    cancel->setText(tr("Cancel"));
    cancel->setDefault(true); // What is lost by a hasty Return must not be a channel.
    cancel->setFocus();
}
