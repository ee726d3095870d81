#include "notes/view/NoteDocumentLayout.h"

#include <QtGui/QTextBlock>
#include <QtGui/QTextLayout>

namespace driftbox {

// Every line is asked for here before it is drawn or clicked on. The side at which lines stand is
// looked at only then, so it may be changed after they were broken.
QRectF NoteDocumentLayout::blockBoundingRect(const QTextBlock& block) const
{
    // Else the paragraph would be shaped once more for each look at it.
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
