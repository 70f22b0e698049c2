#include "SupportDialog.h"

#include "Background.h"
#include "GLWidget.h"
#include "SupportReport.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QShowEvent>
#include <QVBoxLayout>

#include <malloc.h>

namespace
{
constexpr int reportLetters = 72;
constexpr int reportLines = 18;
} // namespace

SupportDialog::SupportDialog(AppData& appData, GLWidget& surface, QWidget* parent)
    : OmbravisionDialog(appData, tr("Support Information"), parent), _surface(surface),
      _report(new QPlainTextEdit(this)), _words(new QLabel(this))
{
    setObjectName("supportDialog");
    setSizeGripEnabled(true);
    auto* const label =
        new QLabel(tr("This is what helps the &support to find out what is wrong. It has no passwords "
                      "and no e-mail addresses. Read it, then give it to whom you like: nothing is "
                      "sent from here."),
                   this);
    label->setBuddy(_report);
    label->setWordWrap(true);
    contents()->addWidget(label);
    _report->setObjectName("report");
    _report->setReadOnly(true);
    _report->setTabChangesFocus(true);
    _report->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(this->font().pointSizeF());
    _report->setFont(font);
    _report->setMinimumSize(reportLetters * fontMetrics().averageCharWidth(),
                            reportLines / 2 * fontMetrics().lineSpacing());
    contents()->addWidget(_report, 1);
    _words->setTextFormat(Qt::PlainText);
    _words->setWordWrap(true);
    _words->setAccessibleName(tr("Result"));
    contents()->addWidget(_words);
    QPushButton* const copyButton = addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    connect(copyButton, &QPushButton::clicked, this, &SupportDialog::copy);
    QPushButton* const saveButton = addButton(tr("Save &as..."), QDialogButtonBox::ActionRole);
    connect(saveButton, &QPushButton::clicked, this, &SupportDialog::chooseFile);
    addButton(QDialogButtonBox::Close)->setDefault(true);
}

void SupportDialog::showEvent(QShowEvent* event)
{
    OmbravisionDialog::showEvent(event);
    if (!event->spontaneous())
        gather();
}

void SupportDialog::hideEvent(QHideEvent* event)
{
    OmbravisionDialog::hideEvent(event);
    if (!event->spontaneous())
        _report->clear(); // It is gathered anew, and is not small.
}

void SupportDialog::gather()
{
    _surface.makeCurrent();
    QString const known = SupportReport::ofProgram(appData(), *parentWidget());
    _report->setPlainText(known);
    _words->setText(tr("Gathering..."));
    auto const gather = [] {
        QString rest = SupportReport::ofSystem();
        malloc_trim(0); // What it took to gather lies in the heap of this thread, which would keep it for ever.
        return rest;
    };
    Background::run(this, gather, [this, known](QString const& rest) {
        if (!isVisible())
            return;
        _report->setPlainText(known + rest);
        _words->clear();
    });
}

void SupportDialog::copy()
{
    QGuiApplication::clipboard()->setText(_report->toPlainText());
    _words->setText(tr("Copied."));
}

void SupportDialog::chooseFile()
{
    auto* const dialog = new QFileDialog(this, tr("Save Support Information"), QDir::homePath());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix("txt");
    dialog->selectFile("ombravision-support.txt");
    connect(dialog, &QFileDialog::fileSelected, this, &SupportDialog::save);
    dialog->open();
}

void SupportDialog::save(QString const& path)
{
    auto const write = [path, bytes = _report->toPlainText().toUtf8()] {
        QSaveFile file(path);
        bool const isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
        return isWritten ? QString() : file.errorString();
    };
    Background::run(this, write, [this, path](QString const& problem) {
        _words->setText(problem.isEmpty() ? tr("Saved as %1.").arg(path)
                                          : tr("%1 could not be written: %2").arg(path, problem));
    });
}
