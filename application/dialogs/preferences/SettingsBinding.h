#pragma once

#include "AppSettings.h"

#include <QComboBox>
#include <QObject>

#include <functional>
#include <optional>
#include <vector>

class QAbstractButton;
class QAbstractSlider;
class QLineEdit;
class QSpinBox;

/// Ties settings to the widgets that show them: what the viewer changes counts at once, and what changes elsewhere is
/// shown. Bounds are those of the settings table. Main thread only.
class SettingsBinding : public QObject
{
    Q_OBJECT

public:
    /// The settings are borrowed. The widgets must not outlive this, or go with the same parent.
    explicit SettingsBinding(AppSettings& settings, QObject* parent = nullptr);

    void bind(bool SettingsValues::*field, QAbstractButton* button);
    /// So many of the setting are one of the box, such as ms in seconds. What is typed counts when it is complete.
    void bind(int SettingsValues::*field, QSpinBox* box, int unit = 1);
    void bind(int SettingsValues::*field, QAbstractSlider* slider);
    /// The slider is in hundredths.
    void bind(double SettingsValues::*field, QAbstractSlider* slider);
    /// Counts when the viewer has done with it.
    void bind(QString SettingsValues::*field, QLineEdit* line);

    /// The items' data are the values. One that no item has gets one of its own, with `other` for text.
    template<class T>
    void bind(T SettingsValues::*field, QComboBox* box, std::function<QString(T const&)> const& other = {});

    /// The general case. What is returned takes what the widget has now; `show` is given what the setting has, at
    /// once and whenever that changes.
    template<class T>
    std::function<void(T const&)> bind(T SettingsValues::*field, std::function<void(T const&)> const& show);

    /// Takes what is still being typed.
    void commit();

    /// Gives back what has been changed from here since forget(), as it was before the first change.
    void revert();

    /// Before somebody else is signed in, or nobody: gives back what has been changed of what each of them has for
    /// themselves, since that would reach the next one else. What only an account has, such as how it signs in, stays
    /// with it as it was chosen.
    void leaveUser();

    /// As in a new installation.
    void setDefaults();

    /// Whether anything has been changed from here since forget().
    bool hasChanged() const;
    void forget();

    /// Whether one of the settings is kept for who is signed in only.
    bool hasUserSetting() const { return _hasUserSetting; }

private:
    struct Entry {
        std::function<void()> show;
        std::function<void(SettingsValues const&)> take;
        std::function<void()> commit;         ///< May be empty.
        std::optional<SettingsValues> before; ///< The first change from here.
        Setting const* setting = nullptr;
    };

    void follow(size_t entry, SettingField const& field);
    void touch(Entry& entry) const;
    static void revert(Entry& entry);
    static void addMissing(QComboBox* box, QVariant const& value, QString const& text);

    AppSettings& _settings;
    std::vector<Entry> _entries;
    bool _hasUserSetting = false;
    std::optional<SettingsValues> _before; ///< A change of now comes from here; as it was before that.
};

template<class T>
std::function<void(T const&)> SettingsBinding::bind(T SettingsValues::*field,
                                                    std::function<void(T const&)> const& show)
{
    size_t const entry = _entries.size();
    _entries.push_back({[this, field, show] { show(_settings.values().*field); },
                        [this, field](SettingsValues const& from) { _settings.setValue(field, from.*field); },
                        {},
                        {},
                        nullptr});
    follow(entry, field);
    _entries[entry].show();
    return [this, entry, field](T const& value) {
        if (_settings.values().*field == value)
            return;
        _before = _settings.values();
        touch(_entries[entry]);
        _settings.setValue(field, value);
        _before.reset();
        if (_settings.values().*field != value)
            _entries[entry].show();
    };
}

template<class T>
void SettingsBinding::bind(T SettingsValues::*field, QComboBox* box, std::function<QString(T const&)> const& other)
{
    auto const toData = [](T const& value) {
        if constexpr (std::is_enum_v<T>)
            return QVariant(static_cast<int>(value));
        else
            return QVariant::fromValue(value);
    };
    auto const store = bind<T>(field, [box, toData, other](T const& value) {
        addMissing(box, toData(value), other ? other(value) : toData(value).toString());
        box->setCurrentIndex(box->findData(toData(value)));
    });
    connect(box, &QComboBox::activated, this, [box, store](int index) {
        if constexpr (std::is_enum_v<T>)
            store(static_cast<T>(box->itemData(index).toInt()));
        else
            store(box->itemData(index).value<T>());
    });
}
