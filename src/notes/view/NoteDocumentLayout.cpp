#include "notes/view/NoteDocumentLayout.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>

namespace driftbox {

// Called for every block before it is painted or hit-tested. The alignment is evaluated only then,
// so it can be changed after the lines have been laid out.
QRectF NoteDocumentLayout::blockBoundingRect(const QTextBlock& block) const
{
    // Without the cache the paragraph would be shaped again for every query.
    if (block.isValid())
        block.layout()->setCacheEnabled(true);
    const QRectF rect = QPlainTextDocumentLayout::blockBoundingRect(block);
    const bool isRightToLeft = block.isValid() && block.textDirection() == Qt::RightToLeft;
    if (isRightToLeft && !(block.layout()->textOption().alignment() & Qt::AlignRight)) {
        QTextOption option = block.layout()->textOption();
        option.setAlignment(Qt::AlignRight);
        block.layout()->setTextOption(option);
    }
    return rect;
}

} // namespace driftbox
