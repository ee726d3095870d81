#pragma once

#include <QtWidgets/QPlainTextDocumentLayout>

namespace driftbox {

/// Lays plain text out as its superclass does, except that a paragraph written from right to left
/// stands at the right.
class NoteDocumentLayout final : public QPlainTextDocumentLayout
{
    Q_OBJECT

public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    [[nodiscard]] QRectF blockBoundingRect(const QTextBlock& block) const override;
};

} // namespace driftbox
