#include "EffectsDialog.h"

#include "AppData.h"
#include "EffectEditor.h"
#include "EffectNames.h"
#include "EffectsChain.h"
#include "EffectsLibrary.h"
#include "EffectsList.h"
#include "LinkLabel.h"
#include "Look.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QSplitter>
#include <QVBoxLayout>

#include <utility>

namespace
{

constexpr char const* firstSource = "// Each pixel of the picture comes through here.\n"
                                    "uniform sampler2D tex0;\n"
                                    "\n"
                                    "void main()\n"
                                    "{\n"
                                    "    vec4 colour = texture2D(tex0, gl_TexCoord[0].xy);\n"
                                    "    gl_FragColor = colour;\n"
                                    "}\n";
constexpr int editorLetters = 76;
constexpr int editorLines = 16;

} // namespace

EffectsDialog::EffectsDialog(AppData& appData, EffectsLibrary& library, EffectsChain& chain, QWidget* parent)
    : OmbravisionDialog(appData, tr("Effects"), parent), _library(library), _chain(chain)
{
    setObjectName("effectsDialog");
    setSizeGripEnabled(true);
    _enabled = new QCheckBox(tr("&Show effects on the picture"), this);
    _enabled->setChecked(appData.settings.enableVideoPostProcessing());
    connect(_enabled, &QCheckBox::toggled, &appData.settings, &AppSettings::setEnableVideoPostProcessing);
    connect(&appData.settings, &AppSettings::enableVideoPostProcessingChanged, this,
            [this] { _enabled->setChecked(this->appData().settings.enableVideoPostProcessing()); });
    contents()->addWidget(_enabled);
    auto* const splitter = new QSplitter(this);
    splitter->setChildrenCollapsible(false);
    splitter->setAccessibleName(tr("Effects and their source"));
    _list = new EffectsList(library, splitter);
    connectList();
    createEditor(new QWidget(splitter));
    splitter->setStretchFactor(1, 1);
    splitter->setSizes(
        {EffectsList::letters * fontMetrics().averageCharWidth(), editorLetters * fontMetrics().averageCharWidth()});
    contents()->addWidget(splitter, 1);
    _revert = addButton(tr("Re&vert"), QDialogButtonBox::ResetRole);
    _revert->setToolTip(tr("The source as it was before you changed it"));
    _revert->setAutoDefault(false);
    connect(_revert, &QPushButton::clicked, this, &EffectsDialog::onRevert);
    QPushButton* const close = addButton(QDialogButtonBox::Close);
    close->setAutoDefault(false); // Return is for the editor and the list.
    _typing.setSingleShot(true);
    _typing.setInterval(typingPause);
    connect(&_typing, &QTimer::timeout, this, &EffectsDialog::keepTyped);
    connect(&_library, &EffectsLibrary::failed, this, &EffectsDialog::showProblem);
    connect(&chain, &EffectsChain::examined, this, &EffectsDialog::onExamined);
    onChosen();
    QSize const comfortable((editorLetters + 3 * EffectsList::letters) * fontMetrics().averageCharWidth(),
                            2 * editorLines * fontMetrics().lineSpacing());
    resize(comfortable.boundedTo(screen()->availableSize() * 0.9));
}

void EffectsDialog::connectList()
{
    connect(_list, &EffectsList::changed, this, &EffectsDialog::onChosen);
    connect(_list, &EffectsList::switchedOn, this, [this] { appData().settings.setEnableVideoPostProcessing(true); });
    connect(_list, &EffectsList::newWanted, this, &EffectsDialog::onNew);
    connect(_list, &EffectsList::duplicateWanted, this, &EffectsDialog::onDuplicate);
    connect(_list, &EffectsList::renameWanted, this, &EffectsDialog::onRename);
    connect(_list, &EffectsList::removeWanted, this, &EffectsDialog::onRemove);
}

void EffectsDialog::createEditor(QWidget* side)
{
    auto* const layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Look::grid);
    _about = new QLabel(this);
    _about->setTextFormat(Qt::PlainText);
    _about->setWordWrap(true);
    layout->addWidget(_about);
    _editor = new EffectEditor(this);
    _editor->setObjectName("source");
    _editor->setAccessibleName(tr("Source of the effect"));
    _editor->setMinimumSize(editorLetters / 2 * _editor->fontMetrics().averageCharWidth(),
                            editorLines / 2 * _editor->fontMetrics().lineSpacing());
    layout->addWidget(_editor, 1);
    _message = new LinkLabel(this); // All in it is escaped.
    _message->setObjectName("message");
    _message->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse |
                                      Qt::LinksAccessibleByKeyboard);
    connect(_message, &QLabel::linkActivated, this, [this](QString const& line) {
        _editor->goTo(line.toInt());
        _editor->setFocus();
    });
    _message->setMinimumHeight(3 * fontMetrics().lineSpacing());
    _message->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    layout->addWidget(_message);
    _problem = new QLabel(this);
    _problem->setObjectName("problem");
    _problem->setTextFormat(Qt::PlainText);
    _problem->setWordWrap(true);
    _problem->hide();
    layout->addWidget(_problem);
    connect(_editor, &QPlainTextEdit::textChanged, this, &EffectsDialog::onTyped);
}

/// The editor is left alone while nobody else has changed what is in it: the viewer may be typing.
void EffectsDialog::onChosen()
{
    if (_isFilling)
        return;
    bool const isOther = _list->chosen() != _edited;
    if (isOther)
        keepTyped();
    QScopedValueRollback const filling(_isFilling, true);
    _edited = _list->chosen();
    Effect const* const effect = _library.find(_edited);
    bool const isTyping = _typing.isActive();
    if (effect && !isTyping) {
        bool const isNew = isOther ? _editor->toPlainText() != effect->source : effect->source != _shownSource;
        _shownSource = effect->source;
        if (isNew)
            _editor->setPlainText(effect->source);
    }
    if (!effect)
        _editor->clear();
    _editor->setReadOnly(!effect || effect->isTemplate);
    _about->setText(!effect              ? QString()
                    : effect->isTemplate ? tr("Comes with the program. Duplicate it to make your own of it.")
                                         : tr("What you type is kept, and shown while the effect is on."));
    EffectsChain::Finding const found = _chain.finding(_edited);
    onExamined(_edited, effect && !effect->fault.isEmpty() ? effect->fault : found.words, found.log);
    refreshRevert();
    if (isVisible())
        _chain.setWatched(_edited);
}

void EffectsDialog::refreshRevert()
{
    Effect const* const effect = _library.find(_edited);
    bool const isOwn = effect && !effect->isTemplate;
    _revert->setEnabled(isOwn && _originals.contains(_edited) && _originals.value(_edited) != effect->source);
}

void EffectsDialog::onTyped()
{
    if (!_isFilling)
        _typing.start();
}

void EffectsDialog::keepTyped()
{
    if (!_typing.isActive() && sender() != &_typing)
        return;
    _typing.stop();
    Effect const* const effect = _library.find(_edited);
    QString const source = _editor->toPlainText();
    if (!effect || effect->isTemplate || effect->source == source)
        return;
    if (!_originals.contains(_edited))
        _originals.insert(_edited, effect->source);
    QString const before = std::exchange(_shownSource, source);
    QString const words = _library.setSource(_edited, source);
    if (!words.isEmpty())
        _shownSource = before;
    showProblem(words);
    refreshRevert();
}

void EffectsDialog::showEvent(QShowEvent* event)
{
    OmbravisionDialog::showEvent(event);
    _chain.setWatched(_edited);
}

void EffectsDialog::hideEvent(QHideEvent* event)
{
    keepTyped();
    _chain.setWatched({});
    OmbravisionDialog::hideEvent(event);
}

void EffectsDialog::onExamined(QString const& name, QString const& words, QString const& log)
{
    if (name != _edited)
        return;
    QList<CompilerMessage> const messages = compilerMessages(log);
    _editor->setMessages(messages);
    constexpr int mostLines = 6;
    QStringList lines(words.isEmpty() ? QStringList() : QStringList(words));
    QStringList links(words.isEmpty() ? QStringList() : QStringList(words.toHtmlEscaped()));
    for (CompilerMessage const& message : messages.mid(0, mostLines)) {
        bool const hasLine = message.line > 0;
        lines.append(hasLine ? tr("Line %1: %2").arg(message.line).arg(message.text) : message.text);
        QString const html = lines.constLast().toHtmlEscaped();
        links.append(hasLine ? QString("<a href=\"%1\">%2</a>").arg(message.line).arg(html) : html);
    }
    showMessage(links.join("<br>"), lines.join('\n'));
}

void EffectsDialog::tell(QString const& words)
{
    showMessage(words.toHtmlEscaped().replace('\n', "<br>"), words);
}

void EffectsDialog::showMessage(QString const& html, QString const& words)
{
    _message->setText(html);
    _message->setAccessibleName(words.isEmpty() ? tr("Messages") : words);
}

/// Until the next attempt: what a trial has to say does not cover it.
void EffectsDialog::showProblem(QString const& words)
{
    _problem->setText(words);
    _problem->setVisible(!words.isEmpty());
}

void EffectsDialog::onNew()
{
    QString const name = _library.freeName(tr("New effect"));
    tell(_library.add(name, firstSource));
    _list->choose(name);
    _editor->setFocus();
}

void EffectsDialog::onDuplicate()
{
    keepTyped();
    Effect const* const effect = _library.find(_edited);
    if (!effect)
        return;
    QString const name = _library.freeName(effect->name);
    tell(_library.add(name, effect->source, effect->name));
    _list->choose(name);
    _editor->setFocus();
}

void EffectsDialog::onRename()
{
    keepTyped();
    auto* const question = new QInputDialog(this);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setWindowTitle(tr("Rename"));
    question->setLabelText(tr("&Name of the effect:"));
    question->setTextValue(_edited);
    connect(question, &QInputDialog::textValueSelected, this, [this, name = _edited](QString const& text) {
        QString const words = _library.rename(name, text);
        if (words.isEmpty() && _originals.contains(name))
            _originals.insert(EffectNames::tidied(text), _originals.take(name));
        if (words.isEmpty())
            _list->choose(EffectNames::tidied(text));
        tell(words);
    });
    question->open();
}

void EffectsDialog::onRemove()
{
    auto* const question = new QMessageBox(QMessageBox::Question, tr("Delete"),
                                           tr("Delete the effect \"%1\"? It can't be brought back.").arg(_edited),
                                           QMessageBox::Cancel, this);
    question->setTextFormat(Qt::PlainText);
    question->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton* const really = question->addButton(tr("&Delete"), QMessageBox::DestructiveRole);
    question->setDefaultButton(QMessageBox::Cancel);
    connect(really, &QPushButton::clicked, this, [this, name = _edited] {
        _typing.stop();
        _originals.remove(name);
        tell(_library.remove(name));
    });
    question->open();
}

void EffectsDialog::onRevert()
{
    _typing.stop();
    QString const original = _originals.value(_edited);
    _shownSource = original;
    QString const words = _library.setSource(_edited, original);
    _editor->setPlainText(original);
    _typing.stop();
    tell(words);
    refreshRevert();
}
