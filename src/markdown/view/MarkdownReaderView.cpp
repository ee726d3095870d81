#include "markdown/view/MarkdownReaderView.h"

#include "markdown/MarkdownReaderViewModel.h"
#include "markdown/view/MarkdownEditor.h"
#include "markdown/view/MarkdownWebView.h"
#include "markdown/view/ReaderHeader.h"
#include "markdown/view/ReaderServices.h"
#include "ui/controls/Divider.h"

#include <QtCore/QEvent>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace driftbox {

MarkdownReaderView::MarkdownReaderView(MarkdownReaderViewModel& viewModel,
                                       const ReaderServices& services,
                                       std::function<void(const QUrl&)> openDocument,
                                       QWidget* parent)
    : QWidget(parent)
    , m_viewModel(viewModel)
    , m_services(services)
    , m_openDocument(std::move(openDocument))
    , m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins({});
    m_column->setSpacing(0);
    m_column->addWidget(new ReaderHeader(viewModel, services.opener, this));
    m_column->addWidget(new Divider(Qt::Horizontal, this));
    showContent();
    connect(&viewModel, &MarkdownReaderViewModel::isEditingChanged, this,
            &MarkdownReaderView::showContent);
    connect(&viewModel, &MarkdownReaderViewModel::markdownChanged, this,
            &MarkdownReaderView::updatePreview);
}

void MarkdownReaderView::showContent()
{
    savePlace();
    delete m_content; // destroys the preview's web page, too
    m_content = makeContent();
    m_column->addWidget(m_content, 1);
    m_content->setFocus();
}

void MarkdownReaderView::savePlace()
{
    if (m_preview)
        m_place = m_preview->place();
    else if (const auto line = m_editor ? m_editor->lineScrolledTo() : std::nullopt)
        m_place = {.line = *line, .sourceLine = *line};
}

void MarkdownReaderView::showPlace(const ReadingPlace& place)
{
    if (m_preview)
        m_preview->showPlace(place);
    else
        m_place.fragment = place.fragment;
}

QWidget* MarkdownReaderView::makeContent()
{
    m_preview = nullptr;
    m_editor = nullptr;
    if (m_viewModel.isEditing()) {
        m_editor =
            new MarkdownEditor(m_viewModel, m_services.pasteboard, m_services.selectedText, this);
        m_editor->showLine(m_place.sourceLine);
        return m_editor;
    }
    m_preview = new MarkdownWebView(m_viewModel.fileURL(), m_services, m_openDocument, this);
    m_preview->showPlace(m_place);
    updatePreview();
    return m_preview;
}

void MarkdownReaderView::updatePreview()
{
    if (m_preview)
        m_preview->update(m_viewModel.markdown(), theme());
}

QString MarkdownReaderView::theme() const
{
    const bool isDark = palette().color(QPalette::Base).lightnessF() < 0.5F;
    return isDark ? u"dark"_s : u"light"_s;
}

void MarkdownReaderView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updatePreview();
}

} // namespace driftbox
