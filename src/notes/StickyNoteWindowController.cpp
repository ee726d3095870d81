#include "notes/StickyNoteWindowController.h"

#include "notes/NotePlacement.h"
#include "notes/StickyNoteViewModel.h"
#include "platform/FloatingSurface.h"

#include <algorithm>

#include <QtCore/QMarginsF>

namespace driftbox {

namespace {

QMarginsF margins(double margin)
{
    return {margin, margin, margin, margin};
}

} // namespace

StickyNoteWindowController::StickyNoteWindowController(
    std::unique_ptr<StickyNoteViewModel> viewModel, NoteWindowFactory& windows, const QRectF& frame,
    QObject* parent)
    : QObject(parent)
    , m_viewModel(std::move(viewModel))
    , m_window(windows.makeWindow(*m_viewModel))
{
    setFrame(frame);
    connect(&m_window->surface(), &FloatingSurface::frameChangedByUser, this,
            [this] { m_viewModel->updateFrame(NoteFrame::fromRect(this->frame())); });
}

StickyNoteWindowController::~StickyNoteWindowController() = default;

const StickyNoteId& StickyNoteWindowController::noteID() const
{
    return m_viewModel->note().id;
}

void StickyNoteWindowController::showWindow()
{
    m_window->surface().present(FloatingSurface::Keyboard::take);
}

void StickyNoteWindowController::orderOut()
{
    m_window->surface().orderOut();
}

bool StickyNoteWindowController::isKey() const
{
    return m_window->surface().isKey();
}

void StickyNoteWindowController::zoom(double factor)
{
    zoomWindow(factor);
    m_viewModel->setZoom(std::clamp(m_viewModel->zoom() * factor, minNoteZoom, maxNoteZoom));
}

QRectF StickyNoteWindowController::frame() const
{
    return m_window->surface().frame().marginsRemoved(margins(m_window->shadowMargin()));
}

void StickyNoteWindowController::setFrame(const QRectF& frame)
{
    m_window->surface().setFrame(frame.marginsAdded(margins(m_window->shadowMargin())));
}

void StickyNoteWindowController::zoomWindow(double factor)
{
    const QRectF before = frame();
    QRectF after(QPointF(), (before.size() * factor)
                                .boundedTo(NotePlacement::maxZoomedWindow)
                                .expandedTo(NotePlacement::minWindowSize));
    after.moveCenter(before.center());
    if (after == before)
        return;
    setFrame(after);
    m_viewModel->updateFrame(NoteFrame::fromRect(after));
}

} // namespace driftbox
