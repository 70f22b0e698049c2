#pragma once

/// The other side of an EffectTrial: a process of its own that reads a source from its standard input, compiles it
/// and draws a few small pictures with it, and writes what it has found as JSON: "compiled", "log", and
/// "microsecondsPerMegapixel".
class EffectTrialProgram
{
public:
    /// Whether the arguments ask for a trial, and for nothing else.
    static bool isWanted(int argc, char** argv);

    /// Returns the process's exit status. Needs a display; touches no file.
    static int run(int argc, char** argv);
};
