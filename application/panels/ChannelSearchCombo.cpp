#include "ChannelSearchCombo.h"

#include "Icons.h"

#include <QLineEdit>

ChannelSearchCombo::ChannelSearchCombo(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setMaxVisibleItems(maximumHistory + 5);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumContentsLength(8);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lineEdit()->setPlaceholderText(tr("Enter your channel search"));
    lineEdit()->setMaxLength(maximumQuery);
    lineEdit()->addAction(Icons::icon(Icon::Search), QLineEdit::LeadingPosition);
    setAccessibleName(tr("Enter your channel search"));
    setCompleter(nullptr); // What is typed is what is searched for.
    connect(lineEdit(), &QLineEdit::returnPressed, this, &ChannelSearchCombo::searchRequested);
    connect(this, &QComboBox::textActivated, this, &ChannelSearchCombo::searchRequested);
}

QString ChannelSearchCombo::query() const
{
    return currentText().simplified();
}

void ChannelSearchCombo::setSuggestions(QStringList const& suggestions)
{
    _suggestions = suggestions;
    fill();
}

void ChannelSearchCombo::addToHistory(QString const& query)
{
    _history.removeAll(query);
    _history.prepend(query);
    if (_history.size() > maximumHistory)
        _history.removeLast();
    fill();
}

void ChannelSearchCombo::clearAll()
{
    _history.clear();
    _suggestions.clear();
    fill();
    clearEditText();
}

void ChannelSearchCombo::fill()
{
    QString const typed = currentText();
    clear();
    addItems(_history);
    for (QString const& suggestion : _suggestions)
        if (!_history.contains(suggestion))
            addItem(suggestion);
    setCurrentIndex(-1);
    setEditText(typed);
}
