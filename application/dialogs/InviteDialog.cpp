#include "InviteDialog.h"

#include "AppData.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QUrl>
#include <QUrlQuery>
#include <QVBoxLayout>

namespace
{
constexpr int letterLines = 9;
constexpr int letterWidth = 52; // Letters.
} // namespace

InviteDialog::InviteDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Invite a Friend"), parent), _text(new QPlainTextEdit(this)),
      _message(new QLabel(this))
{
    setObjectName("inviteDialog");
    auto* const label = new QLabel(tr("&Your letter:"), this);
    label->setBuddy(_text);
    contents()->addWidget(label);
    _text->setObjectName("letter");
    _text->setTabChangesFocus(true);
    _text->setMinimumSize(letterWidth * fontMetrics().averageCharWidth(), letterLines * fontMetrics().lineSpacing());
    _text->setPlainText(tr("Hello,\n\nI watch live television with Ombravision, and thought you might like it, too. "
                           "You can get it here:\n\n%1\n\nSee you there!\n")
                            .arg(appData.settings.invitationsUrl().toString()));
    contents()->addWidget(_text, 1);
    _message->setObjectName("message");
    _message->setTextFormat(Qt::PlainText);
    _message->setWordWrap(true);
    _message->hide();
    contents()->addWidget(_message);
    QPushButton* const copyButton = addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copyButton->setAutoDefault(false);
    connect(copyButton, &QPushButton::clicked, this, &InviteDialog::copy);
    addButton(QDialogButtonBox::Close)->setAutoDefault(false);
    QPushButton* const mail = addButton(tr("&Write a mail"), QDialogButtonBox::ActionRole);
    mail->setDefault(true);
    connect(mail, &QPushButton::clicked, this, &InviteDialog::writeMail);
}

void InviteDialog::copy()
{
    QGuiApplication::clipboard()->setText(_text->toPlainText());
}

void InviteDialog::writeMail()
{
    QUrlQuery query;
    // Everything is encoded, and line ends are those of mails (RFC 6068).
    auto const encoded = [](QString const& text) {
        return QString::fromLatin1(QUrl::toPercentEncoding(QString(text).replace('\n', "\r\n")));
    };
    query.addQueryItem("subject", encoded(tr("Ombravision")));
    query.addQueryItem("body", encoded(_text->toPlainText()));
    QUrl mail(QStringLiteral("mailto:"));
    mail.setQuery(query);
    bool const isOpen = QDesktopServices::openUrl(mail);
    if (!isOpen)
        _message->setText(tr("No program for mails could be opened. Copy the letter instead."));
    _message->setVisible(!isOpen);
}
