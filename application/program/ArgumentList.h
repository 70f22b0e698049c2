#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

class Logger;

/// The command line: switches with their values, then what to play.
///
/// The list itself holds tokens: every argument, split on "=", so that "-debug=Foo" and "-debug Foo" are the same.
/// What to play is read from the arguments as they were given, since an address may hold "=" itself:
/// - an argument that begins with "-" is a switch;
/// - the argument after a `-debug` without "=" is its value if it reads as a list of classes, unless a file has that
///   name;
/// - all others are file names or addresses;
/// - "--" ends the switches: everything after it is a file name or an address.
class ArgumentList : public QStringList
{
public:
    /// From main(); the first argument is the program's own name.
    ArgumentList(int argc, char** argv);

    /// From tokens that are split already; nothing in them is known as a file name or an address.
    explicit ArgumentList(QStringList const& tokens);

    /// All arguments, split on "=", empty parts kept.
    static QStringList argsToStringlist(int argc, char** argv);

    /// The value of a switch: the token after it. Empty but not null when the switch stands without a value, at the
    /// end or before another switch; `defaultValue` when it is absent.
    /// A token that is a later part of its argument, or stands after "--", is no switch.
    QString getSwitchArg(QString const& switchName, QString const& defaultValue) const;

    /// Whether a switch stands in the list, with or without a value.
    bool isGiven(QString const& switchName) const { return !getSwitchArg(switchName, QString()).isNull(); }

    /// The file names and addresses, in order, as they were given.
    QStringList positionalArguments() const { return _positionalArguments; }

    /// The classes that -debug names, in order; none when it stands alone before something to play.
    QStringList debugClasses() const;

    /// The switches that the program does not know, in order, without their values.
    QStringList unknownSwitches() const { return _unknownSwitches; }

private:
    void readArguments(QStringList const& arguments);

    QSet<qsizetype> _continuations; ///< Indexes of the tokens that continue an argument.
    QStringList _positionalArguments;
    QStringList _unknownSwitches;
    bool _debugStandsAlone = false; ///< Before something to play, which is no value of it.

    static Logger* log;
};
