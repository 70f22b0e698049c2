#include "UpdateDialog.h"

#include "SoapLoginResponse.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
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

UpdateDialog::UpdateDialog(SoapLoginResponse const& response, QWidget* parent)
    : QDialog(parent), _url(downloadUrl(response.updateUrl))
{
    setObjectName("updateDialog");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Update"));
    auto* const layout = new QVBoxLayout(this);
    QString const version = response.updateVersion.left(maximumVersion).simplified();
    QString const heading =
        response.isUpdateCritical()
            ? tr("You must install the critical update to version %1 before you can sign in again.")
            : tr("Version %1 of Ombravision is available.");
    QLabel* const title = makeLabel(heading.arg(version), "heading");
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    layout->addWidget(title);
    if (!response.updateMessage.trimmed().isEmpty()) {
        auto* const message = new QPlainTextEdit(response.updateMessage.left(maximumUpdateText), this);
        message->setObjectName("updateMessage");
        message->setReadOnly(true);
        message->setTabChangesFocus(true);
        message->setMinimumSize(messageWidth * fontMetrics().averageCharWidth(),
                                messageLines * fontMetrics().lineSpacing());
        layout->addWidget(message, 1);
    }
    layout->addWidget(makeLabel(_url.isValid() ? tr("It can be downloaded from %1.").arg(_url.host())
                                               : tr("The service names no safe address to download it from."),
                                "source"));
    if (_url.isValid() && isMd5(response.updateMd5))
        layout->addWidget(makeLabel(tr("MD5 sum of the file: %1").arg(response.updateMd5), "md5"));

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (_url.isValid()) {
        QPushButton* const button = buttons->addButton(tr("&Download"), QDialogButtonBox::AcceptRole);
        button->setDefault(true);
        button->setFocus();
        connect(buttons, &QDialogButtonBox::accepted, this, &UpdateDialog::download);
    }
    layout->addWidget(buttons);
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
    QDesktopServices::openUrl(_url);
    accept();
}
