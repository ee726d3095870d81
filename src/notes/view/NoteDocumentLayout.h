#pragma once

#include <QtWidgets/QPlainTextDocumentLayout>

namespace driftbox {

/// A plain text layout that aligns right-to-left paragraphs to the right.
class NoteDocumentLayout final : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock& block) const override;
};

} // namespace driftbox
