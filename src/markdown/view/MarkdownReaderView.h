#pragma once

#include <functional>

#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace driftbox {

class MarkdownReaderViewModel;
class MarkdownWebView;
struct ReaderServices;

/// The content of a reader window: a bar over the preview or the editor of the source.
class MarkdownReaderView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` and `services` must outlive the view. `openDocument` opens a Markdown file in a
    /// reader.
    MarkdownReaderView(MarkdownReaderViewModel& viewModel, const ReaderServices& services,
                       std::function<void(const QUrl&)> openDocument, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showContent();
    [[nodiscard]] QWidget* makeContent();
    void updatePreview();
    [[nodiscard]] QString theme() const;

    MarkdownReaderViewModel& m_viewModel;
    const ReaderServices& m_services;
    std::function<void(const QUrl&)> m_openDocument;
    QVBoxLayout* m_column;
    QWidget* m_content = nullptr;
    MarkdownWebView* m_preview = nullptr; ///< the content, unless that is the editor
};

} // namespace driftbox
