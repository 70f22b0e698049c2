#include "BufferWindow.h"

#include "AppData.h"
#include "Channel.h"
#include "ChannelManager.h"
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
    auto const addLabel = [this](QString const& text) {
        auto* const label = new QLabel(this);
        label->setTextFormat(Qt::PlainText); // Titles come from outside.
        label->setText(text);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed); // No title makes the window wide.
        label->setMinimumWidth(rowWidth);
        _layout->addWidget(label);
    };
    for (Channel const* const channel : appData().channelManager()->openChannels()) {
        for (LatteClient const* const client : channel->latteClients()) {
            LatteVisualiser* const visualiser = appData().latteVisualiserRegistry.createLatteVisualiser(client);
            if (!visualiser)
                continue;
            addLabel(channel->desc.title());
            visualiser->setParent(this);
            visualiser->setAccessibleName(tr("Buffer of %1").arg(channel->desc.title()));
            visualiser->setMinimumSize(rowWidth, graphHeight);
            _layout->addWidget(visualiser, 1);
            visualiser->show();
            visualiser->start();
            _visualisers.append(visualiser);
        }
    }
    if (_visualisers.isEmpty())
        addLabel(tr("No open channel has a stream buffer."));
    _layout->activate();
    resize(sizeHint().expandedTo({width(), 0})); // As wide as the viewer likes it, and as high as it needs.
}
