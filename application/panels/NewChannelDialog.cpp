#include "NewChannelDialog.h"

#include "ChannelDocumentFields.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{
constexpr int maximumField = 200;
constexpr int maximumAddress = 2000;
constexpr int fieldWidth = 36; // Letters.
} // namespace

NewChannelDialog::NewChannelDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("New Channel"), parent), _name(new QLineEdit(this)),
      _address(new QLineEdit(this)), _description(new QLineEdit(this)), _kind(new QComboBox(this)),
      _message(new QLabel(this))
{
    setObjectName("newChannelDialog");
    setHeading(tr("New Channel"));
    _name->setObjectName("name");
    _address->setObjectName("address");
    _name->setMaxLength(maximumField);
    _description->setMaxLength(maximumField);
    _address->setMaxLength(maximumAddress);
    _address->setPlaceholderText(QStringLiteral("mms://"));
    _address->setInputMethodHints(Qt::ImhUrlCharactersOnly);
    _address->setMinimumWidth(fieldWidth * fontMetrics().averageCharWidth());
    _kind->addItem(tr("Television"), QStringLiteral("TV"));
    _kind->addItem(tr("Radio"), QStringLiteral("RADIO"));
    auto* const form = new QFormLayout;
    form->addRow(tr("&Name:"), _name);
    form->addRow(tr("&Address:"), _address);
    form->addRow(tr("&Kind:"), _kind);
    form->addRow(tr("&Description:"), _description);
    contents()->addLayout(form);
    _message->setObjectName("message");
    _message->setTextFormat(Qt::PlainText);
    _message->setWordWrap(true);
    _message->setMinimumHeight(2 * fontMetrics().lineSpacing()); // The dialog does not jump with each word.
    _message->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    contents()->addWidget(_message);
    _create = addButton(tr("Create"), QDialogButtonBox::AcceptRole);
    _create->setObjectName("createChannel");
    _create->setDefault(true);
    addButton(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    connect(_name, &QLineEdit::textChanged, this, &NewChannelDialog::refresh);
    connect(_address, &QLineEdit::textChanged, this, &NewChannelDialog::refresh);
    refresh();
    _name->setFocus();
}

QString NewChannelDialog::fault() const
{
    QString const address = _address->text().trimmed();
    if (address.isEmpty() || ChannelDocumentFields::isStreamAddress(address))
        return {};
    return tr("This is no address of the network: it begins with mms://, rtsp://, http:// or the like.");
}

void NewChannelDialog::refresh()
{
    QString const wrong = fault();
    tell(wrong.isEmpty() ? tr("Other viewers can find the channel, too.") : wrong);
    _create->setEnabled(!_isBusy && wrong.isEmpty() && !_name->text().trimmed().isEmpty() &&
                        !_address->text().trimmed().isEmpty());
}

void NewChannelDialog::tell(QString const& text)
{
    constexpr qsizetype longest = 500; // The service may say much.
    _message->setText(text.left(longest));
    _message->setAccessibleName(_message->text());
}

void NewChannelDialog::setBusy(bool isBusy)
{
    _isBusy = isBusy;
    for (QWidget* const field : {static_cast<QWidget*>(_name), static_cast<QWidget*>(_address),
                                 static_cast<QWidget*>(_description), static_cast<QWidget*>(_kind)})
        field->setEnabled(!isBusy);
    refresh();
}

void NewChannelDialog::showProgress(QString const& text)
{
    setBusy(true);
    tell(text);
}

void NewChannelDialog::showError(QString const& text)
{
    setBusy(false);
    tell(text);
    _name->setFocus();
}

void NewChannelDialog::finish()
{
    _isBusy = false;
    OmbravisionDialog::accept();
}

void NewChannelDialog::accept()
{
    if (_create->isEnabled())
        emit submitted();
}

SoapUserChannels::Form NewChannelDialog::form() const
{
    return {{"uri", _address->text().trimmed()},
            {"name", _name->text().simplified()},
            {"description", _description->text().simplified()},
            {"channel_type", _kind->currentData().toString()},
            {"logo_url", {}},
            {"chatroom_name", {}}};
}
