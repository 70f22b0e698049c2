#include "BufferWindow.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
#include "ChannelTitle.h"
#include "ElidedLabel.h"
#include "LatteVisualiser.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <memory>

namespace
{

// Pixels. Sixteen streams fit on a screen.
constexpr int rowWidth = 300;
constexpr int graphHeight = 36;

} // namespace

BufferWindow::BufferWindow(AppData& appData, QWidget* parent)
    : OmbravisionDialog(appData, tr("Stream Buffer"), parent), _layout(new QVBoxLayout)
{
    setObjectName("bufferWindow");
    contents()->addLayout(_layout, 1);
    addButton(QDialogButtonBox::Close)->setDefault(true);
    auto const follow = [this] {
        if (isVisible())
            rebuild();
    };
    connect(&appData, &AppData::channelOpened, this, follow);
    connect(&appData, &AppData::channelClosed, this, follow);
    connect(appData.channelManager(), &ChannelManager::streamOpened, this, follow);
}

BufferWindow::~BufferWindow()
{
    clear();
}

void BufferWindow::showEvent(QShowEvent* event)
{
    rebuild();
    OmbravisionDialog::showEvent(event);
}

void BufferWindow::hideEvent(QHideEvent* event)
{
    OmbravisionDialog::hideEvent(event);
    clear();
}

void BufferWindow::clear()
{
    for (LatteVisualiser* const visualiser : std::exchange(_visualisers, {}))
        appData().latteVisualiserRegistry.disposeLatteVisualiser(visualiser);
    while (QLayoutItem* const taken = _layout->takeAt(0)) {
        std::unique_ptr<QLayoutItem> const item(taken);
        if (auto* const label = qobject_cast<QLabel*>(item->widget()))
            label->deleteLater();
    }
}

void BufferWindow::rebuild()
{
    clear();
    auto const addTitle = [this](QString const& title) {
        auto* const label = new ElidedLabel(this); // Titles come from outside.
        label->setFullText(title);
        label->setMinimumWidth(rowWidth);
        _layout->addWidget(label);
    };
    for (Channel const* const channel : appData().channelManager()->openChannels()) {
        for (LatteClient const* const client : channel->latteClients()) {
            LatteVisualiser* const visualiser = appData().latteVisualiserRegistry.createLatteVisualiser(client);
            if (!visualiser)
                continue;
            QString const title = ChannelTitle::shown(channel->desc.title());
            addTitle(title);
            visualiser->setParent(this);
            visualiser->setAccessibleName(tr("Buffer of %1").arg(title));
            visualiser->setMinimumSize(rowWidth, graphHeight);
            _layout->addWidget(visualiser, 1);
            visualiser->show();
            visualiser->start();
            _visualisers.append(visualiser);
        }
    }
    if (_visualisers.isEmpty())
        addNothing();
    _layout->activate();
    resize(sizeHint().expandedTo({width(), 0})); // As wide as the viewer likes it, and as high as it needs.
}

void BufferWindow::addNothing()
{
    auto* const label = new QLabel(tr("No open channel has a stream buffer."), this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setMinimumWidth(rowWidth);
    _layout->addWidget(label);
}
