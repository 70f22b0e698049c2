#pragma once

#include "OmbravisionDialog.h"
#include "SettingsBinding.h"
#include "TestEventModel.h"

class QLabel;
class QTableView;

/// Test mode: how long each channel gets, whether a failure sounds, and a table of what was found out, to be saved
/// for a spreadsheet. Main thread only.
class TestConsole : public OmbravisionDialog
{
    Q_OBJECT

public:
    TestConsole(AppData& appData, QWidget* parent);

    TestEventModel& model() { return _model; }

private:
    void createControls();
    void createTable();
    void onTestEvent(TestEvent const& event);
    void showCount();
    void chooseFile();
    void save(QString const& path);

    TestEventModel _model;
    SettingsBinding _binding;
    QTableView* _table = nullptr;
    QLabel* _count = nullptr;
};
