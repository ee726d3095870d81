#include "markdown/view/MarkdownFileChooser.h"

#include "platform/StandardWindows.h"

#include <QtCore/QMimeDatabase>
#include <QtGui/QWindow>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

const QString markdownType = u"text/markdown"_s;

} // namespace

void setMarkdownFilter(QFileDialog& dialog, bool systemKnowsMarkdown)
{
    if (systemKnowsMarkdown)
        dialog.setMimeTypeFilters({markdownType});
    else
        dialog.setNameFilter(u"Markdown (*.md)"_s);
}

MarkdownFileChooser::MarkdownFileChooser(StandardWindows& windows)
    : m_windows(windows)
{
}

MarkdownFileChooser::~MarkdownFileChooser()
{
    delete m_dialog;
}

void MarkdownFileChooser::run(std::function<void(const QUrl&)> chosen)
{
    if (!m_dialog) {
        m_dialog = new QFileDialog;
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->setWindowTitle(u"Open Markdown"_s);
        m_dialog->setLabelText(QFileDialog::Accept, u"Open"_s);
        m_dialog->setFileMode(QFileDialog::ExistingFile);
        m_dialog->setOption(QFileDialog::ReadOnly); // no folders can be created
        setMarkdownFilter(*m_dialog, QMimeDatabase().mimeTypeForName(markdownType).isValid());
        QObject::connect(m_dialog, &QFileDialog::accepted, m_dialog,
                         [dialog = m_dialog.data(), chosen = std::move(chosen)] {
                             if (const QList<QUrl> urls = dialog->selectedUrls(); !urls.isEmpty())
                                 chosen(urls.first());
                         });
        m_dialog->open();
    }
    if (QWindow* window = m_dialog->windowHandle())
        m_windows.present(*window);
}

} // namespace driftbox
