#pragma once

#include "OmbravisionDialog.h"

#include <QHash>
#include <QTimer>

class QListWidget;
class QPlainTextEdit;
class QPushButton;

/// Asks for several addresses and files, one a line, says what each is, and adds those that can be played beside what
/// plays; the others stay to be mended. Whether a file is there is asked on another thread. Main thread only.
class AddStreamsDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    static constexpr int mostLines = 100;

    AddStreamsDialog(AppData& appData, QWidget* parent);

    void accept() override;

private:
    QStringList allLines() const;
    QStringList lines() const; ///< That are read.
    bool isUsable(QString const& line) const;
    void check();
    void lookForFiles(QStringList const& names);
    void showResults();
    void chooseFiles();

    QPlainTextEdit* _text;
    QListWidget* _results;
    QPushButton* _add;
    QTimer _typing;
    QHash<QString, bool> _isThere; ///< Files that have been looked for.
};
