#pragma once

#include <QSplitter>
#include <QTimer>

class AppSettings;

/// The picture and, after it, the tabs; where it is divided is kept in the settings. The picture gets what the window
/// grows by. Main thread only.
class Splitter : public QSplitter
{
    Q_OBJECT

public:
    explicit Splitter(AppSettings& settings, QWidget* parent = nullptr);

    /// Divides as the settings say; called once both parts are in it.
    void restore();

    /// Puts it into the settings as it is.
    void keep();

private:
    AppSettings& _settings;
    QTimer _rest; ///< Keeps the state once the handle rests.
};
