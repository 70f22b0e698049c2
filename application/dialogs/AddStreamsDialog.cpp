#include "AddStreamsDialog.h"

#include "AddressCheck.h"
#include "AppData.h"
#include "Background.h"
#include "ChannelManager.h"
#include "FileName.h"
#include "Icons.h"
#include "Look.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{

constexpr int textLetters = 60;
constexpr int textLines = 6;
constexpr int checkPause = 200; // ms from the last letter.

} // namespace

AddStreamsDialog::AddStreamsDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Add Streams"), parent), _text(new QPlainTextEdit(this)),
      _results(new QListWidget(this))
{
    setObjectName("addStreamsDialog");
    auto* const label = new QLabel(tr("&Addresses and files, one a line:"), this);
    label->setBuddy(_text);
    label->setWordWrap(true);
    contents()->addWidget(label);
    _text->setObjectName("lines");
    _text->setTabChangesFocus(true);
    _text->setLineWrapMode(QPlainTextEdit::NoWrap);
    _text->setMinimumSize(textLetters * fontMetrics().averageCharWidth(), textLines * fontMetrics().lineSpacing());
    contents()->addWidget(_text, 2);
    _results->setObjectName("results");
    _results->setAccessibleName(tr("What the lines are"));
    _results->setSelectionMode(QAbstractItemView::NoSelection);
    _results->setWordWrap(true);
    _results->setMinimumHeight(textLines / 2 * (fontMetrics().lineSpacing() + Look::halfGrid));
    contents()->addWidget(_results, 1);
    QPushButton* const files = addButton(tr("Choose &files..."), QDialogButtonBox::ActionRole);
    files->setAutoDefault(false);
    connect(files, &QPushButton::clicked, this, &AddStreamsDialog::chooseFiles);
    addButton(QDialogButtonBox::Cancel);
    _add = addButton(tr("A&dd"), QDialogButtonBox::AcceptRole);
    _add->setDefault(true);
    _typing.setSingleShot(true);
    _typing.setInterval(checkPause);
    connect(&_typing, &QTimer::timeout, this, &AddStreamsDialog::check);
    connect(_text, &QPlainTextEdit::textChanged, &_typing, qOverload<>(&QTimer::start));
    check();
}

QStringList AddStreamsDialog::allLines() const
{
    QStringList lines;
    for (QString const& line : _text->toPlainText().split('\n'))
        if (!line.trimmed().isEmpty())
            lines.append(line.trimmed());
    return lines;
}

QStringList AddStreamsDialog::lines() const
{
    return allLines().mid(0, mostLines);
}

bool AddStreamsDialog::isUsable(QString const& line) const
{
    AddressCheck const check = AddressCheck::of(line);
    return check.kind == AddressCheck::Kind::Stream ||
           (check.kind == AddressCheck::Kind::File && _isThere.value(line));
}

void AddStreamsDialog::check()
{
    QStringList unknown;
    for (QString const& line : lines())
        if (AddressCheck::of(line).kind == AddressCheck::Kind::File && !_isThere.contains(line))
            unknown.append(line);
    if (!unknown.isEmpty())
        lookForFiles(unknown);
    showResults();
}

void AddStreamsDialog::lookForFiles(QStringList const& names)
{
    auto const look = [names] {
        QHash<QString, bool> found;
        for (QString const& name : names)
            found.insert(name, QFileInfo(QFile::decodeName(FileName::toLocal8Bit(name))).isFile());
        return found;
    };
    Background::run(this, look, [this](QHash<QString, bool> const& found) {
        _isThere.insert(found);
        showResults();
    });
}

void AddStreamsDialog::showResults()
{
    _results->clear();
    bool isAnyUsable = false;
    for (QString const& line : lines()) {
        AddressCheck const check = AddressCheck::of(line);
        bool const isFile = check.kind == AddressCheck::Kind::File;
        QString const words = isFile && !_isThere.contains(line) ? tr("Looking for this file...")
                              : isFile && !_isThere.value(line)  ? tr("There is no such file.")
                                                                 : check.words;
        constexpr int longestShown = 80;
        QString const shown = line.size() > longestShown ? QString(line.left(longestShown) + "...") : line;
        auto* const item = new QListWidgetItem(tr("%1: %2").arg(Uri::withoutUserInfo(shown), words), _results);
        item->setIcon(Icons::icon(isUsable(line) ? Icon::Television : Icon::Warning));
        isAnyUsable = isAnyUsable || isUsable(line);
    }
    if (allLines().size() > mostLines) {
        auto* const item = new QListWidgetItem(
            tr("Only the first %n line(s) are read; the others stay here.", nullptr, mostLines), _results);
        item->setIcon(Icons::icon(Icon::Info));
    }
    _results->setVisible(_results->count() > 0); // An empty box says nothing.
    _add->setEnabled(isAnyUsable);
}

void AddStreamsDialog::chooseFiles()
{
    auto* const dialog = new QFileDialog(this, tr("Choose Files"), appData().settings.videoFileDirectory());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, [this](QStringList const& paths) {
        QString const before = _text->toPlainText().trimmed();
        _text->setPlainText(before.isEmpty() ? paths.join('\n') : QString(before + '\n' + paths.join('\n')));
        appData().settings.setVideoFileDirectory(QFileInfo(paths.constFirst()).absolutePath());
    });
    dialog->open();
}

void AddStreamsDialog::accept()
{
    QStringList left;
    QStringList added;
    for (QString const& line : lines())
        (isUsable(line) ? added : left).append(line);
    left += allLines().mid(mostLines);
    if (added.isEmpty())
        return;
    if (left.isEmpty())
        OmbravisionDialog::accept();
    _text->setPlainText(left.join('\n'));
    _isThere.clear(); // It may be another time until the next look.
    ChannelManager& channels = *appData().channelManager();
    for (QString const& line : added) {
        if (AddressCheck::of(line).kind == AddressCheck::Kind::File)
            channels.openFile(line, false);
        else
            channels.openUserStream(line, Uri::withoutUserInfo(line), false);
    }
}
