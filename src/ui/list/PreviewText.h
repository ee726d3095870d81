#pragma once

#include "core/PreviewLines.h"

#include <memory>
#include <vector>

#include <QtGui/QFont>
#include <QtGui/QTextLayout>

class QPainter;

namespace driftbox {

/// The preview of a text, laid out once and painted many times: at most two lines, elided at the
/// end. Right-to-left text is aligned to the right. The line spacing does not depend on fallback
/// fonts.
class PreviewText
{
public:
    /// `width` is in points.
    PreviewText(const PreviewLines& lines, const QFont& font, qreal width);

    /// Whether it was laid out for this font and width.
    [[nodiscard]] bool fits(const QFont& font, qreal width) const;

    [[nodiscard]] qreal height() const;
    /// The painted lines.
    [[nodiscard]] QStringList texts() const;

    /// Paints in the pen's color, vertically centered in `area`.
    void paint(QPainter& painter, const QRect& area) const;

private:
    void addParagraph(const QString& text, bool continues);
    void addLine(const QString& text, Qt::LayoutDirection direction);
    [[nodiscard]] QString elided(const QString& text, bool continues) const;
    [[nodiscard]] qsizetype lengthOfFirstLine(const QString& text) const;

    QFont m_font;
    qreal m_width;
    std::vector<std::unique_ptr<QTextLayout>> m_lines;
};

} // namespace driftbox
