#pragma once

#include <QList>
#include <QString>

/// A message of a shader compiler.
struct CompilerMessage {
    int line = 0; ///< From 1; 0 for none.
    QString text;
    bool isWarning = false;

    bool operator==(CompilerMessage const& other) const = default;
};

/// The messages in a driver's log, which gives the place of each as "0:LINE(COLUMN): ", "0(LINE) : " or
/// "ERROR: 0:LINE: ", by maker.
QList<CompilerMessage> compilerMessages(QString const& log);
