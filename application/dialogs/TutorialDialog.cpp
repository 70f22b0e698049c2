#include "TutorialDialog.h"

#include "AppData.h"
#include "Look.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QShowEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int pictureWidth = 440;
constexpr int pictureHeight = 128;
constexpr int iconSide = 56;

/// Icons in a row on a dark ground, as over the picture of a channel; the middle one stands out.
class TutorialPicture : public QWidget
{
public:
    TutorialPicture(QList<Icon> const& icons, QWidget* parent) : QWidget(parent), _icons(icons)
    {
        setMinimumSize(pictureWidth, pictureHeight);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        QColor ground = Look::overlayGround;
        ground.setAlpha(255);
        painter.setBrush(ground);
        painter.drawRoundedRect(rect(), Look::radius, Look::radius);
        qreal const ratio = devicePixelRatioF();
        int const step = iconSide + 3 * Look::grid;
        int const count = static_cast<int>(_icons.size());
        bool const rightToLeft = layoutDirection() == Qt::RightToLeft;
        for (int i = 0; i < count; ++i) {
            bool const isMiddle = i == count / 2;
            int const place = rightToLeft ? count - 1 - i : i;
            QPointF const centre(width() / 2.0 + (place - (count - 1) / 2.0) * step, height() / 2.0);
            QRectF const square(centre - QPointF(iconSide, iconSide) / 2.0, QSizeF(iconSide, iconSide));
            if (isMiddle) {
                painter.setBrush(Look::overlayHover);
                constexpr int room = 2 * Look::grid;
                painter.drawRoundedRect(square.adjusted(-room, -room, room, room), Look::radius, Look::radius);
            }
            QImage image =
                Icons::image(_icons.at(i), qRound(iconSide * ratio), isMiddle ? Look::accent : Look::overlayDimText);
            painter.drawImage(square, image);
        }
    }

private:
    QList<Icon> const _icons;
};

} // namespace

TutorialDialog::TutorialDialog(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Tutorial"), parent), _pages(new QStackedWidget(this)), _place(new QLabel(this))
{
    setObjectName("tutorialDialog");
    addPage(
        {Icon::Radio, Icon::Television, Icon::Favourite}, tr("Welcome"),
        tr("Ombravision plays live television from all over the world. The tab \"Channels\" has your channels, and "
           "\"Search\" finds more. Choose one, and it plays."));
    addPage({Icon::Previous, Icon::Play, Icon::Next}, tr("Over the picture"),
            tr("Move the pointer over the picture, and the controls appear: volume, mute, previous and next channel, "
               "full screen. They go by themselves once the pointer rests."));
    addPage({Icon::Television, Icon::Multiview, Icon::Television}, tr("Several at once"),
            tr("Hold Ctrl and click another channel to watch it beside the first. A click on a picture gives it the "
               "sound, and Ctrl with a click closes it."));
    addPage(
        {Icon::Record, Icon::Screenshot, Icon::Carousel}, tr("Keep and find"),
        tr("Record what plays, keep a picture of it, or turn the carousel to see all channels at once. All of it is "
           "in the menus, with its keys."));
    addPage(
        {Icon::Settings, Icon::Info, Icon::User}, tr("Make it yours"),
        tr("Sign in to have your channels and settings wherever you are. The preferences change at once, and Help "
           "has a table of all keys. You find this tutorial there, too."));
    contents()->addWidget(_pages, 1);
    contents()->addWidget(_place);
    _back = addButton(tr("&Back"), QDialogButtonBox::ActionRole);
    _back->setAutoDefault(false);
    _next = addButton(tr("&Next"), QDialogButtonBox::ActionRole);
    _next->setDefault(true);
    addButton(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(_back, &QPushButton::clicked, this, [this] { goTo(_pages->currentIndex() - 1); });
    connect(_next, &QPushButton::clicked, this, [this] {
        if (_pages->currentIndex() + 1 == _pages->count())
            accept();
        else
            goTo(_pages->currentIndex() + 1);
    });
    goTo(0);
}

void TutorialDialog::addPage(QList<Icon> const& picture, QString const& title, QString const& text)
{
    auto* const page = new QWidget(_pages);
    page->setAccessibleName(title);
    auto* const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Look::margin);
    auto* const painting = new TutorialPicture(picture, page);
    painting->setAccessibleName(tr("Picture"));
    layout->addWidget(painting);
    auto* const heading = new QLabel(title, page);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * Look::titleSize);
    heading->setFont(font);
    heading->setWordWrap(true);
    layout->addWidget(heading);
    auto* const words = new QLabel(text, page);
    words->setTextFormat(Qt::PlainText);
    words->setWordWrap(true);
    words->setAlignment(Qt::AlignLeading | Qt::AlignTop);
    layout->addWidget(words, 1);
    _pages->addWidget(page);
}

int TutorialDialog::pageCount() const
{
    return _pages->count();
}

void TutorialDialog::goTo(int page)
{
    _pages->setCurrentIndex(std::clamp(page, 0, _pages->count() - 1));
    int const index = _pages->currentIndex();
    _place->setText(tr("Page %1 of %2").arg(index + 1).arg(_pages->count()));
    _back->setEnabled(index > 0);
    _next->setText(index + 1 == _pages->count() ? tr("&Done") : tr("&Next"));
}

void TutorialDialog::showEvent(QShowEvent* event)
{
    if (!event->spontaneous())
        goTo(0);
    OmbravisionDialog::showEvent(event);
}

void TutorialDialog::done(int result)
{
    OmbravisionDialog::done(result);
    if (appData().settings.seenTutorial29())
        return;
    appData().settings.setSeenTutorial29(true);
    appData().settings.saveGlobalSettings();
}
