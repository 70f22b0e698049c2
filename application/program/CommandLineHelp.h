#pragma once

#include <QString>

class ArgumentList;

/// What the program says about itself on the command line, without a display.
class CommandLineHelp
{
public:
    /// The text that -h, -help, --help, -version or --version asks for; empty when none of them is given.
    static QString answer(ArgumentList const& arguments);
};
