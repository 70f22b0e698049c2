#pragma once

#include "MenuActions.h"
#include "SettingsValues.h"

#include <optional>
#include <span>
#include <variant>

class AppSettings;

/// Where a setting is kept: for all users of this installation, for one account, or for this run.
enum class SettingScope {
    Global,
    User,
    Guest, ///< For whoever has not signed in: those of an account that make sense without one, see isOf().
    Run,
};

/// What of a setting passes between field and file.
enum class SettingStorage {
    ReadAndWritten,
    OnlyRead,    ///< Changed by hand, or written by whoever makes it.
    OnlyWritten, ///< Begins each run afresh.
    Enciphered,
};

/// What a setting is when the file has no such key.
enum class WhenAbsent {
    Initial, ///< As in a new SettingsValues.
    Current, ///< As it was.
    Off,
};

/// What a number may be, and what becomes of one that isn't.
struct SettingBounds {
    double minimum;
    double maximum;
    bool takesNearest = true; ///< Else the setting is as if absent.
};

/// The field of a setting.
using SettingField =
    std::variant<bool SettingsValues::*, int SettingsValues::*, double SettingsValues::*, QString SettingsValues::*,
                 QStringList SettingsValues::*, QByteArray SettingsValues::*, QPoint SettingsValues::*,
                 QSize SettingsValues::*, QList<int> SettingsValues::*, QHash<QString, bool> SettingsValues::*,
                 QList<ChatColour> SettingsValues::*, Uri SettingsValues::*,
                 SettingsValues::ColourConversion SettingsValues::*, SettingsValues::Presentation SettingsValues::*>;

/// All that is to be known of one setting.
struct Setting {
    char const* group; ///< Empty for none.
    char const* key;   ///< Empty for a setting of this run.
    SettingField field;
    void (AppSettings::*changed)() = nullptr; ///< The signal, if it has one.
    /// The action whose mark shows it; of a number the action of its 0, which those of the others follow.
    std::optional<MenuAction> action = {};
    SettingScope scope = SettingScope::Run;
    WhenAbsent whenAbsent = WhenAbsent::Initial;
    SettingStorage storage = SettingStorage::ReadAndWritten;
    bool isOfAccount = false;    ///< It means nothing to a guest.
    bool actionShowsOff = false; ///< The mark is set while the setting is off.
    std::optional<SettingBounds> bounds = {};
    bool (*accepts)(QString const& text) = nullptr; ///< What a text must be, white space around it removed.
};

/// Every setting that is stored, signalled or shown by an action, once for each scope, in the order of the file.
std::span<Setting const> settingsTable();

/// Whether a line belongs to what is kept there. Without an account that is what an account has, but for what only it
/// can have and for the window's, which is the installation's then.
bool isOf(Setting const& setting, SettingScope scope);

/// The first line of a field, null if it has none.
Setting const* findSetting(SettingField const& field);
