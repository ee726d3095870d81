#pragma once

#include "markdown/ReadingPlace.h"

#include <functional>

#include <QtCore/QUrl>
#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace driftbox {

class MarkdownEditor;
class MarkdownReaderViewModel;
class MarkdownWebView;
struct ReaderServices;

/// The content of a reader window: a header above the preview or the source editor.
class MarkdownReaderView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` and `services` must outlive the view. `openDocument` opens a Markdown file in a
    /// reader.
    MarkdownReaderView(MarkdownReaderViewModel& viewModel, const ReaderServices& services,
                       std::function<void(const QUrl&)> openDocument, QWidget* parent = nullptr);

    /// Scrolls the preview there; in the editor, the next preview.
    void showPlace(const ReadingPlace& place);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showContent();
    void savePlace();
    [[nodiscard]] QWidget* makeContent();
    void updatePreview();
    [[nodiscard]] QString theme() const;

    MarkdownReaderViewModel& m_viewModel;
    const ReaderServices& m_services;
    std::function<void(const QUrl&)> m_openDocument;
    QVBoxLayout* m_column;
    QWidget* m_content = nullptr;
    // One of them is the content.
    MarkdownWebView* m_preview = nullptr;
    MarkdownEditor* m_editor = nullptr;
    ReadingPlace m_place; ///< the preview's position while the source is edited
};

} // namespace driftbox
