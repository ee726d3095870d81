#pragma once

#include "core/PreviewLines.h"

#include <memory>
#include <vector>

#include <QtGui/QFont>
#include <QtGui/QTextLayout>

class QPainter;

namespace driftbox {

/// The preview of a text, laid out once to be drawn often: at most two lines, cut at the tail. A
/// right-to-left text keeps to the right. Lines are equally far apart whatever fonts they need.
class PreviewText
{
public:
    /// `width` is in points.
    PreviewText(const PreviewLines& lines, const QFont& font, qreal width);

    /// Whether it was made for this font and width.
    [[nodiscard]] bool fits(const QFont& font, qreal width) const;

    [[nodiscard]] qreal height() const;
    /// What is drawn, line by line.
    [[nodiscard]] QStringList texts() const;

    /// In the pen's color, from the left edge of `area` on and in the middle of its height.
    void paint(QPainter& painter, const QRect& area) const;

private:
    void addParagraph(const QString& text, bool continues);
    void addLine(const QString& text, Qt::LayoutDirection direction);
    [[nodiscard]] QString cut(const QString& text, bool continues) const;
    [[nodiscard]] qsizetype lengthOfFirstLine(const QString& text) const;

    QFont m_font;
    qreal m_width;
    std::vector<std::unique_ptr<QTextLayout>> m_lines;
};

} // namespace driftbox
