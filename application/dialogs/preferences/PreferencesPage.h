#pragma once

#include "Icons.h"
#include "SettingsBinding.h"

#include <QList>
#include <QPair>
#include <QWidget>

class AppData;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QSpinBox;
class QVBoxLayout;

/// A page of the preferences: sections of lines, each of which shows a setting. Main thread only.
class PreferencesPage : public QWidget
{
    Q_OBJECT

public:
    SettingsBinding& binding() { return _binding; }

protected:
    explicit PreferencesPage(AppData& appData);

    AppData& appData() const { return _data; }

    /// Begins a section; what is added from here on goes into it.
    void addSection(QString const& title);

    // A setting with its line. Labels may have a mnemonic.
    QCheckBox* addSwitch(QString const& text, bool SettingsValues::*field);
    QSpinBox* addNumber(QString const& label, int SettingsValues::*field, QString const& suffix = {}, int unit = 1);
    QLineEdit* addText(QString const& label, QString SettingsValues::*field, int maximumLength);
    template<class T>
    QComboBox* addChoice(QString const& label, T SettingsValues::*field, QList<QPair<QString, T>> const& choices,
                         std::function<QString(T const&)> const& other = {});

    // What is no setting.
    void addLine(QString const& label, QWidget* widget);
    void addLine(QWidget* widget);
    /// Small words about what stands above.
    QLabel* addNote(QString const& text);
    /// Words that change, at first none; they keep their room.
    QLabel* addResult();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QComboBox* addChoiceBox(QString const& label);

    AppData& _data;
    SettingsBinding _binding;
    QVBoxLayout* _layout;
    QFormLayout* _section = nullptr;
};

template<class T>
QComboBox* PreferencesPage::addChoice(QString const& label, T SettingsValues::*field,
                                      QList<QPair<QString, T>> const& choices,
                                      std::function<QString(T const&)> const& other)
{
    QComboBox* const box = addChoiceBox(label);
    for (auto const& [text, value] : choices) {
        if constexpr (std::is_enum_v<T>)
            box->addItem(text, static_cast<int>(value));
        else
            box->addItem(text, QVariant::fromValue(value));
    }
    _binding.bind(field, box, other);
    return box;
}
