#include "OpenStreamDialog.h"

#include "AddressCheck.h"
#include "AppData.h"
#include "ChannelManager.h"
#include "Look.h"

#include <QComboBox>
#include <QCompleter>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

namespace
{
constexpr int addressLetters = 48;
}

OpenStreamDialog::OpenStreamDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Open Video Stream"), parent), _address(new QComboBox(this)),
      _words(new QLabel(this))
{
    setObjectName("openStreamDialog");
    _address->setObjectName("address");
    _address->setEditable(true);
    _address->setInsertPolicy(QComboBox::NoInsert);
    _address->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    _address->setMinimumContentsLength(addressLetters);
    _address->completer()->setCompletionMode(QCompleter::PopupCompletion);
    _address->completer()->setFilterMode(Qt::MatchContains);
    _address->lineEdit()->setPlaceholderText(QStringLiteral("http://"));
    _address->lineEdit()->setInputMethodHints(Qt::ImhUrlCharactersOnly | Qt::ImhNoPredictiveText);
    _address->lineEdit()->setAccessibleName(tr("Address"));
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    auto* const label = new QLabel(tr("&Address:"), this);
    label->setBuddy(_address);
    form->addRow(label, _address);
    contents()->addLayout(form);
    _words->setObjectName("words");
    _words->setTextFormat(Qt::PlainText);
    _words->setWordWrap(true);
    _words->setMinimumHeight(2 * fontMetrics().lineSpacing());
    _words->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    contents()->addWidget(_words);

    _forget = addButton(tr("&Forget all"), QDialogButtonBox::ResetRole);
    _forget->setToolTip(tr("Forget the addresses that were opened before"));
    _forget->setAutoDefault(false);
    _beside = addButton(tr("Open &beside"), QDialogButtonBox::ActionRole);
    _beside->setToolTip(tr("Beside what plays (Ctrl+Return)"));
    _beside->setAutoDefault(false);
    addButton(QDialogButtonBox::Cancel);
    _open = addButton(tr("&Open"), QDialogButtonBox::AcceptRole);
    _open->setDefault(true);
    connect(_beside, &QPushButton::clicked, this, [this] { play(true); });
    connect(_forget, &QPushButton::clicked, this, [this] {
        this->appData().settings.setStreamHistory({});
        fillHistory();
    });
    for (QKeySequence const& keys : {QKeySequence("Ctrl+Return"), QKeySequence("Ctrl+Enter")})
        connect(new QShortcut(keys, this), &QShortcut::activated, this, [this] { play(true); });
    connect(_address, &QComboBox::editTextChanged, this, &OpenStreamDialog::check);
    check();
}

void OpenStreamDialog::showEvent(QShowEvent* event)
{
    OmbravisionDialog::showEvent(event);
    if (event->spontaneous())
        return;
    fillHistory();
    _address->setFocus();
}

void OpenStreamDialog::fillHistory()
{
    QStringList const history = appData().settings.streamHistory();
    _address->clear();
    _address->addItems(history);
    _address->setCurrentIndex(history.isEmpty() ? -1 : 0); // The last one again, or something else at once.
    _address->lineEdit()->selectAll();
    _forget->setEnabled(!history.isEmpty());
    check();
}

void OpenStreamDialog::check()
{
    AddressCheck const check = AddressCheck::of(_address->currentText());
    _words->setText(check.words);
    _words->setAccessibleName(check.words.isEmpty() ? tr("What the address is") : check.words);
    _open->setEnabled(check.isUsable());
    _beside->setEnabled(check.isUsable());
}

void OpenStreamDialog::accept()
{
    play(false);
}

void OpenStreamDialog::play(bool beside)
{
    QString const address = _address->currentText().trimmed();
    AddressCheck const check = AddressCheck::of(address);
    if (!check.isUsable())
        return;
    AppSettings& settings = appData().settings;
    settings.setStreamHistory(extended(settings.streamHistory(), address));
    OmbravisionDialog::accept();
    ChannelManager& channels = *appData().channelManager();
    if (check.kind == AddressCheck::Kind::File)
        channels.openFile(address, !beside);
    else
        channels.openUserStream(address, Uri::withoutUserInfo(address), !beside);
    settings.saveGlobalSettings();
}

QStringList OpenStreamDialog::extended(QStringList const& history, QString const& address)
{
    QStringList addresses = history;
    addresses.prepend(Uri::withoutUserInfo(address));
    addresses.removeDuplicates();
    return addresses.mid(0, historyLength);
}
