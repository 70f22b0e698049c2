#include "AccountDialog.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace
{
constexpr int formWidth = 44; // Letters of the font at hand.
constexpr int maximumEmail = 254;
constexpr int maximumPassword = 1024;
constexpr int maximumMessage = 1000; // Of what the service says.
} // namespace

AccountDialog::AccountDialog(AppData& appData, QString const& title, QString const& action, QWidget* parent)
    : OmbravisionDialog(appData, title, parent), _introduction(new QLabel(this)), _form(new QFormLayout),
      _email(new QLineEdit(this)), _lowerPart(new QVBoxLayout), _message(new QLabel(this)),
      _progress(new QProgressBar(this))
{
    for (QLabel* const label : {_introduction, _message}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    _introduction->hide();
    _message->setObjectName("message");
    _message->setTextInteractionFlags(Qt::TextSelectableByMouse);
    _message->setMinimumHeight(2 * fontMetrics().lineSpacing()); // The dialog does not jump with each word.
    _message->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    _email->setObjectName("email");
    _email->setMaxLength(maximumEmail);
    _email->setInputMethodHints(Qt::ImhEmailCharactersOnly | Qt::ImhNoPredictiveText);
    _form->addRow(tr("E-&mail:"), _email);
    connect(_email, &QLineEdit::textChanged, this, &AccountDialog::refresh);
    _password = addPasswordField(tr("&Password:"));
    _password->setObjectName("password");
    _progress->setRange(0, 0);
    _progress->setTextVisible(false);
    _progress->setAccessibleName(tr("Progress"));
    QSizePolicy policy = _progress->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    _progress->setSizePolicy(policy);
    _progress->hide();

    addButton(QDialogButtonBox::Cancel);
    _action = addButton(action, QDialogButtonBox::AcceptRole);
    _action->setDefault(true);
    contents()->addWidget(_introduction);
    contents()->addLayout(_form);
    contents()->addLayout(_lowerPart);
    contents()->addWidget(_message, 1);
    contents()->addWidget(_progress);
    _message->setMinimumWidth(formWidth * fontMetrics().averageCharWidth() +
                              fontMetrics().horizontalAdvance(tr("&Password:")));
}

QLineEdit* AccountDialog::addPasswordField(QString const& label)
{
    auto* const field = new QLineEdit(this);
    field->setEchoMode(QLineEdit::Password);
    field->setMaxLength(maximumPassword);
    _form->addRow(label, field);
    connect(field, &QLineEdit::textChanged, this, &AccountDialog::refresh);
    return field;
}

void AccountDialog::addCheckBox(QCheckBox* box)
{
    _form->addRow(QString(), box);
}

void AccountDialog::addIntroduction(QString const& text)
{
    _introduction->setText(text);
    _introduction->show();
}

QString AccountDialog::email() const
{
    return _email->text().trimmed();
}

QString AccountDialog::password() const
{
    return _password->text();
}

bool AccountDialog::isEmail(QString const& text)
{
    static QRegularExpression const shape(QStringLiteral("^[^\\s@]+@[^\\s@.]+(\\.[^\\s@.]+)*$"));
    return shape.match(text).hasMatch();
}

void AccountDialog::refresh()
{
    _action->setEnabled(!_isBusy && isComplete());
    tell(hint(), false);
}

void AccountDialog::tell(QString const& text, bool isError)
{
    QFont font = _message->font();
    font.setBold(isError);
    _message->setFont(font);
    _message->setText(text.left(maximumMessage));
    _message->setAccessibleName(text.isEmpty() ? tr("Message") : _message->text());
}

void AccountDialog::setBusy(bool isBusy)
{
    _isBusy = isBusy;
    for (QWidget* const field : findChildren<QWidget*>())
        if (qobject_cast<QLineEdit*>(field) || qobject_cast<QCheckBox*>(field) || field->property("locks").toBool())
            field->setEnabled(!isBusy);
    _progress->setVisible(isBusy);
    _action->setEnabled(!isBusy && isComplete());
    if (isBusy)
        return;
    _password->setFocus(); // It went to Cancel, which Return would press.
    _password->selectAll();
}

void AccountDialog::showProgress(QString const& text)
{
    setBusy(true);
    tell(text, false);
}

void AccountDialog::showError(QString const& text)
{
    setBusy(false);
    tell(text, true);
}

void AccountDialog::finish()
{
    setBusy(false);
    OmbravisionDialog::accept();
}

void AccountDialog::accept()
{
    if (!_isBusy && isComplete())
        emit submitted();
}

void AccountDialog::reject()
{
    if (!_isBusy) {
        OmbravisionDialog::reject();
        return;
    }
    setBusy(false);
    refresh();
    emit cancelled();
}

void AccountDialog::closeEvent(QCloseEvent* event)
{
    if (_isBusy)
        reject();
    OmbravisionDialog::closeEvent(event);
}
