#include "TestConsole.h"

#include "AppData.h"
#include "Background.h"
#include "Look.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QSpinBox>
#include <QTableView>
#include <QVBoxLayout>

namespace
{
constexpr int tableLetters = 64;
constexpr int tableLines = 10;
} // namespace

TestConsole::TestConsole(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Test Console"), parent), _binding(appData.settings)
{
    setObjectName("testConsole");
    setSizeGripEnabled(true);
    createControls();
    createTable();
    QPushButton* const saveButton = addButton(tr("&Save as..."), QDialogButtonBox::ActionRole);
    connect(saveButton, &QPushButton::clicked, this, &TestConsole::chooseFile);
    QPushButton* const clear = addButton(tr("C&lear"), QDialogButtonBox::ActionRole);
    connect(clear, &QPushButton::clicked, this, [this] {
        _model.clear();
        showCount();
    });
    addButton(QDialogButtonBox::Close)->setDefault(true);
    for (QPushButton* const button : {saveButton, clear})
        button->setAutoDefault(false);
    connect(&appData, &AppData::channelTestEvent, this, &TestConsole::onTestEvent);
    showCount();
}

void TestConsole::createControls()
{
    auto* const form = new QFormLayout;
    form->setHorizontalSpacing(Look::margin);
    form->setVerticalSpacing(Look::grid);
    auto* const run = new QCheckBox(tr("&Go from channel to channel and see whether each plays"), this);
    QAction* const action = appData().settings.action(MenuAction::TestChannels);
    run->setChecked(action->isChecked());
    run->setEnabled(action->isEnabled());
    connect(run, &QCheckBox::clicked, action, &QAction::trigger);
    connect(action, &QAction::changed, run, [run, action] {
        run->setChecked(action->isChecked());
        run->setEnabled(action->isEnabled());
    });
    form->addRow(run);
    auto* const time = new QSpinBox(this);
    time->setSuffix(tr(" s"));
    time->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    _binding.bind(&SettingsValues::testModeFailureTimeout, time);
    form->addRow(tr("&Time for each:"), time);
    auto* const sound = new QCheckBox(tr("&Play a sound when one fails"), this);
    _binding.bind(&SettingsValues::testModePlayFailureSound, sound);
    form->addRow(sound);
    contents()->addLayout(form);
}

void TestConsole::createTable()
{
    _table = new QTableView(this);
    _table->setObjectName("events");
    _table->setAccessibleName(tr("What was found out"));
    _table->setModel(&_model);
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setAlternatingRowColors(true);
    _table->setTabKeyNavigation(false);
    _table->setWordWrap(false);
    _table->verticalHeader()->hide();
    _table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _table->verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + Look::grid);
    _table->horizontalHeader()->setSectionResizeMode(TestEventModel::Time, QHeaderView::ResizeToContents);
    _table->horizontalHeader()->setStretchLastSection(true);
    _table->setColumnWidth(TestEventModel::Name, tableLetters / 3 * fontMetrics().averageCharWidth());
    _table->setMinimumSize(tableLetters * fontMetrics().averageCharWidth(),
                           tableLines / 2 * fontMetrics().lineSpacing());
    contents()->addWidget(_table, 1);
    _count = new QLabel(this);
    _count->setTextFormat(Qt::PlainText);
    contents()->addWidget(_count);
}

void TestConsole::onTestEvent(TestEvent const& event)
{
    QScrollBar const* const bar = _table->verticalScrollBar();
    bool const wasAtEnd = bar->value() == bar->maximum();
    _model.add(event, QDateTime::currentDateTime());
    if (wasAtEnd)
        _table->scrollToBottom();
    showCount();
}

void TestConsole::showCount()
{
    QString const tested = tr("%n channel(s) tested", nullptr, _model.rowCount());
    QString const failed = tr("%n failed", nullptr, _model.failures());
    _count->setText(tr("%1, %2").arg(tested, failed));
}

void TestConsole::chooseFile()
{
    auto* const dialog = new QFileDialog(this, tr("Save Test Events"), QDir::homePath());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("csv");
    dialog->selectFile("ombravision-test.csv");
    connect(dialog, &QFileDialog::fileSelected, this, &TestConsole::save);
    dialog->open();
}

void TestConsole::save(QString const& path)
{
    auto const write = [path, bytes = _model.csv()] {
        QSaveFile file(path);
        bool const isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
        return isWritten ? QString() : file.errorString();
    };
    Background::run(this, write, [this, path](QString const& problem) {
        _count->setText(problem.isEmpty() ? tr("Saved as %1.").arg(path)
                                          : tr("%1 could not be written: %2").arg(path, problem));
    });
}
