#include "markdown/view/ReaderHeader.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "platform/DocumentOpener.h"
#include "ui/controls/SymbolButton.h"
#include "ui/controls/Tooltip.h"
#include "ui/theme/Symbols.h"
#include "ui/theme/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int headlineSize = 13;
constexpr int symbolSize = 14;
constexpr int dotSize = 6;
constexpr int sideMargin = 12;
constexpr int edgeMargin = 6;
constexpr int spacing = 8;

class DocumentSymbol final : public QWidget
{
public:
    explicit DocumentSymbol(QWidget* parent)
        : QWidget(parent)
    {
        setFixedSize(Symbols::extent(symbolSize), Symbols::extent(symbolSize));
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        Symbols::paint(painter, rect(), u"doc.text"_s,
                       {.size = symbolSize, .color = Theme::secondary()});
    }
};

// A single line of text, elided at its end when there is not enough room.
class Headline final : public QLabel
{
public:
    Headline(const QString& text, QWidget* parent)
        : QLabel(text, parent)
    {
        setTextFormat(Qt::PlainText);
        setFont(Theme::systemFont(headlineSize, QFont::DemiBold));
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
        setMinimumWidth(fontMetrics().horizontalAdvance(u"…"_s));
    }

    // A label would be at least as wide as its text.
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        return {minimumWidth(), QLabel::minimumSizeHint().height()};
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setPen(Theme::primary());
        painter.drawText(rect(), Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

class Dot final : public QWidget
{
public:
    explicit Dot(QWidget* parent)
        : QWidget(parent)
    {
        setFixedSize(dotSize, dotSize);
        setAccessibleName(u"Unsaved changes"_s);
        setTooltip(*this, u"Unsaved changes"_s);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Theme::secondary());
        painter.drawEllipse(rect());
    }
};

} // namespace

ReaderHeader::ReaderHeader(MarkdownReaderViewModel& viewModel, DocumentOpener& opener,
                           QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
    , m_unsavedDot(new Dot(this))
    , m_editButton(new SymbolButton(u"pencil"_s, u"Edit source"_s, this))
{
    auto* revealButton = new SymbolButton(u"folder"_s, u"Reveal file in Finder"_s, this);
    revealButton->setLabel(u"Reveal"_s);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(sideMargin, edgeMargin, sideMargin - SymbolButton::padding, edgeMargin);
    row->setSpacing(spacing);
    row->addWidget(new DocumentSymbol(this));
    row->addWidget(new Headline(viewModel.displayName(), this));
    row->addWidget(m_unsavedDot);
    row->addStretch(1);
    row->addWidget(m_editButton);
    row->addWidget(revealButton);

    m_unsavedDot->setVisible(viewModel.hasUnsavedChanges());
    showMode();
    connect(&viewModel, &MarkdownReaderViewModel::hasUnsavedChangesChanged, this,
            [this] { m_unsavedDot->setVisible(m_viewModel.hasUnsavedChanges()); });
    connect(&viewModel, &MarkdownReaderViewModel::isEditingChanged, this, &ReaderHeader::showMode);
    connect(m_editButton, &SymbolButton::clicked, &viewModel, &MarkdownReaderViewModel::toggleEdit);
    connect(revealButton, &SymbolButton::clicked, this,
            [this, &opener] { opener.reveal(m_viewModel.fileURL()); });
}

void ReaderHeader::showMode()
{
    const bool isEditing = m_viewModel.isEditing();
    m_editButton->setSystemImage(isEditing ? u"eye"_s : u"pencil"_s);
    setTooltip(*m_editButton, isEditing ? u"Switch to preview"_s : u"Edit source"_s);
    m_editButton->setLabel(isEditing ? u"Preview"_s : u"Edit"_s);
}

} // namespace driftbox
