#include "notes/view/NoteImageView.h"

#include "notes/StickyNoteViewModel.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {
constexpr qreal cornerRadius = 4.0;
}

NoteImageView::NoteImageView(StickyNoteViewModel& viewModel, QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
{
    setAccessibleName(u"Image"_s);
    connect(&viewModel, &StickyNoteViewModel::imageChanged, this,
            qOverload<>(&NoteImageView::update));
}

int NoteImageView::heightForWidth(int width) const
{
    const QSizeF image = m_viewModel.image().size();
    return image.isEmpty() ? 0 : qRound(width * image.height() / image.width());
}

void NoteImageView::paintEvent(QPaintEvent*)
{
    const QImage image = m_viewModel.image();
    const qreal ratio = devicePixelRatioF();
    const QSize availableSize = (QSizeF(size()) * ratio).toSize();
    if (image.isNull() || availableSize.isEmpty())
        return;
    const QSize scaledSize =
        image.size().scaled(availableSize, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (m_scaled.size() != scaledSize)
        m_scaled = image.scaled(scaledSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    m_scaled.setDevicePixelRatio(ratio);

    const QPoint corner((availableSize.width() - scaledSize.width()) / 2,
                        (availableSize.height() - scaledSize.height()) / 2);
    const QRectF area(QPointF(corner) / ratio, QSizeF(scaledSize) / ratio);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QBrush(m_scaled));
    painter.setBrushOrigin(area.topLeft());
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(area, cornerRadius, cornerRadius);
}

} // namespace driftbox
