#include "PreferencesPage.h"

#include "AppData.h"
#include "Look.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
#include <QVBoxLayout>

PreferencesPage::PreferencesPage(AppData& appData)
    : _data(appData), _binding(appData.settings), _layout(new QVBoxLayout(this))
{
    _layout->setContentsMargins(0, 0, 0, 0);
    _layout->setSpacing(Look::grid);
    _layout->setAlignment(Qt::AlignTop);
}

void PreferencesPage::addSection(QString const& title)
{
    if (_section)
        _layout->addSpacing(Look::grid);
    auto* const heading = new QLabel(title, this);
    heading->setTextFormat(Qt::PlainText);
    heading->setWordWrap(true);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    _layout->addWidget(heading);
    _section = new QFormLayout;
    // Labels above the fields where the letters are large for the screen.
    constexpr int lettersInARow = 110;
    bool const isNarrow = lettersInARow * fontMetrics().averageCharWidth() > screen()->availableSize().width();
    _section->setRowWrapPolicy(isNarrow ? QFormLayout::WrapAllRows : QFormLayout::DontWrapRows);
    _section->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    _section->setHorizontalSpacing(Look::margin);
    _section->setVerticalSpacing(Look::grid);
    _section->setContentsMargins(Look::margin, 0, 0, 0);
    _layout->addLayout(_section);
}

QCheckBox* PreferencesPage::addSwitch(QString const& text, bool SettingsValues::*field)
{
    auto* const box = new QCheckBox(text, this);
    _binding.bind(field, box);
    addLine(box);
    return box;
}

QSpinBox* PreferencesPage::addNumber(QString const& label, int SettingsValues::*field, QString const& suffix,
                                     int unit)
{
    auto* const box = new QSpinBox(this);
    box->setSuffix(suffix);
    box->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    _binding.bind(field, box, unit);
    addLine(label, box);
    return box;
}

QLineEdit* PreferencesPage::addText(QString const& label, QString SettingsValues::*field, int maximumLength)
{
    auto* const line = new QLineEdit(this);
    line->setMaxLength(maximumLength);
    _binding.bind(field, line);
    addLine(label, line);
    return line;
}

QComboBox* PreferencesPage::addChoiceBox(QString const& label)
{
    auto* const box = new QComboBox(this);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    addLine(label, box);
    return box;
}

void PreferencesPage::addLine(QString const& label, QWidget* widget)
{
    auto* const words = new QLabel(label, this);
    words->setBuddy(widget);
    if (widget->focusPolicy() != Qt::NoFocus)
        widget->setFocusPolicy(Qt::StrongFocus); // Not by the wheel.
    widget->installEventFilter(this);
    _section->addRow(words, widget);
}

/// Who scrolls the page does not change what comes under the pointer.
bool PreferencesPage::eventFilter(QObject* watched, QEvent* event)
{
    auto const* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::Wheel || !widget || widget->hasFocus())
        return QWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

void PreferencesPage::addLine(QWidget* widget)
{
    _section->addRow(widget);
}

QLabel* PreferencesPage::addNote(QString const& text)
{
    auto* const note = new QLabel(text, this);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    QFont font = note->font();
    font.setPointSizeF(font.pointSizeF() * Look::smallSize);
    note->setFont(font);
    _section->addRow(note);
    return note;
}

QLabel* PreferencesPage::addResult()
{
    auto* const result = new QLabel(this);
    result->setTextFormat(Qt::PlainText);
    result->setWordWrap(true);
    result->setTextInteractionFlags(Qt::TextSelectableByMouse);
    result->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    result->setMinimumHeight(2 * fontMetrics().lineSpacing()); // The page does not jump with each word.
    result->setAccessibleName(tr("Result"));
    _section->addRow(result);
    return result;
}
