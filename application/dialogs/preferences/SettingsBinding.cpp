#include "SettingsBinding.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QLineEdit>
#include <QSpinBox>

#include <algorithm>
#include <cmath>
#include <utility>

SettingsBinding::SettingsBinding(AppSettings& settings, QObject* parent) : QObject(parent), _settings(settings) {}

void SettingsBinding::follow(size_t entry, SettingField const& field)
{
    Setting const* const setting = findSetting(field);
    _entries[entry].setting = setting;
    _hasUserSetting = _hasUserSetting || (setting && setting->scope == SettingScope::User);
    if (!setting || !setting->changed)
        return;
    connect(&_settings, setting->changed, this, [this, entry] {
        touch(_entries[entry]); // Such as a mute that ends with a change of the volume.
        _entries[entry].show();
    });
}

void SettingsBinding::touch(Entry& entry) const
{
    if (_before && !entry.before)
        entry.before = _before;
}

void SettingsBinding::bind(bool SettingsValues::*field, QAbstractButton* button)
{
    auto const store = bind<bool>(field, [button](bool const& on) { button->setChecked(on); });
    connect(button, &QAbstractButton::toggled, this, store);
}

void SettingsBinding::bind(int SettingsValues::*field, QSpinBox* box, int unit)
{
    if (Setting const* const setting = findSetting(field); setting && setting->bounds)
        box->setRange(static_cast<int>(std::ceil(setting->bounds->minimum / unit)),
                      static_cast<int>(setting->bounds->maximum / unit));
    box->setKeyboardTracking(false); // 8080 is not 8 and 80 first.
    auto const store = bind<int>(field, [box, unit](int const& value) { box->setValue((value + unit / 2) / unit); });
    connect(box, &QSpinBox::valueChanged, this, [this, field, store, unit](int value) {
        if ((_settings.values().*field + unit / 2) / unit != value) // What is shown may be rounded.
            store(value * unit);
    });
    _entries.back().commit = [box] { box->interpretText(); };
}

void SettingsBinding::bind(int SettingsValues::*field, QAbstractSlider* slider)
{
    if (Setting const* const setting = findSetting(field); setting && setting->bounds)
        slider->setRange(static_cast<int>(setting->bounds->minimum), static_cast<int>(setting->bounds->maximum));
    auto const store = bind<int>(field, [slider](int const& value) { slider->setValue(value); });
    connect(slider, &QAbstractSlider::valueChanged, this, store);
}

void SettingsBinding::bind(double SettingsValues::*field, QAbstractSlider* slider)
{
    constexpr double hundred = 100.0;
    slider->setRange(0, static_cast<int>(hundred));
    auto const store =
        bind<double>(field, [slider](double const& value) { slider->setValue(qRound(value * hundred)); });
    connect(slider, &QAbstractSlider::valueChanged, this, [this, field, store](int value) {
        if (qRound(_settings.values().*field * hundred) != value)
            store(value / hundred);
    });
}

void SettingsBinding::bind(QString SettingsValues::*field, QLineEdit* line)
{
    auto const store = bind<QString>(field, [line](QString const& text) {
        if (line->text() != text)
            line->setText(text);
    });
    connect(line, &QLineEdit::editingFinished, this, [line, store] { store(line->text()); });
    _entries.back().commit = [line, store] { store(line->text()); };
}

void SettingsBinding::addMissing(QComboBox* box, QVariant const& value, QString const& text)
{
    if (box->findData(value) < 0)
        box->addItem(text, value);
}

void SettingsBinding::commit()
{
    for (Entry const& entry : _entries)
        if (entry.commit)
            entry.commit();
}

void SettingsBinding::revert()
{
    // In the order in which they were bound: the volume, whose change ends a mute, comes before that.
    for (Entry& entry : _entries)
        revert(entry);
}

void SettingsBinding::revert(Entry& entry)
{
    if (std::optional<SettingsValues> const before = std::exchange(entry.before, std::nullopt))
        entry.take(*before);
    entry.show();
}

void SettingsBinding::leaveUser()
{
    for (Entry& entry : _entries) {
        if (!entry.setting)
            continue;
        if (isOf(*entry.setting, SettingScope::Guest))
            revert(entry);
        else if (entry.setting->isOfAccount)
            entry.before.reset();
    }
}

void SettingsBinding::setDefaults()
{
    SettingsValues const initial;
    _before = _settings.values();
    for (Entry& entry : _entries) {
        touch(entry);
        entry.take(initial);
        entry.show();
    }
    _before.reset();
}

bool SettingsBinding::hasChanged() const
{
    return std::ranges::any_of(_entries, [](Entry const& entry) { return entry.before.has_value(); });
}

void SettingsBinding::forget()
{
    for (Entry& entry : _entries)
        entry.before.reset();
}
