#pragma once

#include <QLabel>
#include <QTimer>

#include <array>

/// A few words to the viewer over the lower edge of a widget: passing ones, which go away by themselves, and lasting
/// ones, which are there, under the passing ones, until they are taken back.
///
/// A native window above those that it covers, since the picture is drawn past Qt. Main thread only.
class Notice : public QLabel
{
    Q_OBJECT

public:
    static constexpr int showTime = 6000; ///< ms

    /// Covers a part of `place`, which belongs to the same top-level window as the parent.
    Notice(QWidget* parent, QWidget* place);

    /// What lasting words are about; the earlier one is shown first.
    enum class Subject { SigningIn, Directory };

    /// Shows a text, taken as it is, in place of the last one.
    void tell(QString const& text);

    /// Likewise, until the text of this subject is another one; an empty one takes it back.
    void keep(Subject subject, QString const& text);

public slots:
    /// Passing words go.
    void onPassed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void display(QString const& text);
    void moveIntoPlace();

    QWidget* const _place;
    QTimer _timer;                   ///< Runs while passing words are shown.
    std::array<QString, 2> _lasting; ///< By subject.
};
