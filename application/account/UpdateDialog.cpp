#include "UpdateDialog.h"

#include "SoapLoginResponse.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace
{

constexpr int maximumVersion = 40; // Characters of what the service says; the rest is left out.
constexpr int maximumUpdateText = 20000;
constexpr int messageLines = 7;
constexpr int messageWidth = 60; // Letters.

bool isMd5(QString const& text)
{
    static QRegularExpression const shape(QStringLiteral("^[0-9A-Fa-f]{32}$"));
    return shape.match(text).hasMatch();
}

} // namespace

UpdateDialog::UpdateDialog(AppData& appData, SoapLoginResponse const& response, QWidget* parent)
    : OmbravisionDialog(appData, tr("Update"), parent), _url(downloadUrl(response.updateUrl))
{
    setObjectName("updateDialog");
    setAttribute(Qt::WA_DeleteOnClose);
    QString const version = response.updateVersion.left(maximumVersion).simplified();
    QString const heading =
        response.isUpdateCritical()
            ? tr("You must install the critical update to version %1 before you can sign in again.")
            : tr("Version %1 of Ombravision is available.");
    QLabel* const title = makeLabel(heading.arg(version), "heading");
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    contents()->addWidget(title);
    if (!response.updateMessage.trimmed().isEmpty()) {
        auto* const message = new QPlainTextEdit(response.updateMessage.left(maximumUpdateText), this);
        message->setObjectName("updateMessage");
        message->setAccessibleName(tr("What is new"));
        message->setReadOnly(true);
        message->setTabChangesFocus(true);
        message->setMinimumSize(messageWidth * fontMetrics().averageCharWidth(),
                                messageLines * fontMetrics().lineSpacing());
        contents()->addWidget(message, 1);
    }
    contents()->addWidget(makeLabel(_url.isValid() ? tr("It can be downloaded from %1.").arg(_url.host())
                                                   : tr("The service names no safe address to download it from."),
                                    "source"));
    if (_url.isValid() && isMd5(response.updateMd5))
        contents()->addWidget(makeLabel(tr("MD5 sum of the file: %1").arg(response.updateMd5), "md5"));

    _message = makeLabel({}, "message");
    _message->hide();
    contents()->addWidget(_message);
    addButton(QDialogButtonBox::Close);
    if (!_url.isValid())
        return;
    QPushButton* const button = addButton(tr("&Download"), QDialogButtonBox::ActionRole);
    button->setDefault(true);
    button->setFocus();
    connect(button, &QPushButton::clicked, this, &UpdateDialog::download);
}

QLabel* UpdateDialog::makeLabel(QString const& text, char const* name)
{
    auto* const label = new QLabel(this);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QUrl UpdateDialog::downloadUrl(QString const& text)
{
    QUrl const url(text.trimmed(), QUrl::StrictMode);
    bool const isSafe = url.isValid() && url.scheme() == "https" && !url.host().isEmpty() && url.userInfo().isEmpty();
    return isSafe ? url : QUrl();
}

void UpdateDialog::download()
{
    if (QDesktopServices::openUrl(_url)) {
        accept();
        return;
    }
    constexpr qsizetype longest = 300;
    _message->setText(tr("The page could not be opened: %1").arg(_url.toString().left(longest)));
    _message->show();
}
