#pragma once

#include "OmbravisionDialog.h"

#include <QHash>
#include <QTimer>

class EffectEditor;
class EffectsChain;
class EffectsLibrary;
class EffectsList;
class QCheckBox;
class QLabel;
class QPushButton;

/// The editor of the effects: their list, and the source of the one that is chosen. What is typed is kept, and shown
/// on what plays while the effect is on, as soon as it compiles. Main thread only.
class EffectsDialog : public OmbravisionDialog
{
    Q_OBJECT

public:
    static constexpr int typingPause = 400; ///< ms from the last letter to the trial.

    /// Library and chain are borrowed.
    EffectsDialog(AppData& appData, EffectsLibrary& library, EffectsChain& chain, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void connectList();
    void createEditor(QWidget* side);
    void onChosen();
    void onTyped();
    void keepTyped();
    void onExamined(QString const& name, QString const& words, QString const& log);
    void onNew();
    void onDuplicate();
    void onRename();
    void onRemove();
    void onRevert();
    void refreshRevert();
    void tell(QString const& words);
    void showMessage(QString const& html, QString const& words);
    void showProblem(QString const& words);

    EffectsLibrary& _library;
    EffectsChain& _chain;
    QCheckBox* _enabled = nullptr;
    EffectsList* _list = nullptr;
    QLabel* _about = nullptr;
    EffectEditor* _editor = nullptr;
    QLabel* _message = nullptr;
    QLabel* _problem = nullptr; ///< What could not be kept.
    QPushButton* _revert = nullptr;
    QTimer _typing;
    QString _edited;                    ///< Whose source is in the editor.
    QString _shownSource;               ///< Of that, as it was put there or kept last.
    QHash<QString, QString> _originals; ///< Sources as they were before they were edited here.
    bool _isFilling = false;
};
