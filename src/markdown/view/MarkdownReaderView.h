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

/// The content of a reader window: a bar over the preview or the editor of the source.
class MarkdownReaderView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` and `services` must outlive the view. `openDocument` opens a Markdown file in a
    /// reader.
    MarkdownReaderView(MarkdownReaderViewModel& viewModel, const ReaderServices& services,
                       std::function<void(const QUrl&)> openDocument, QWidget* parent = nullptr);

    /// Has the preview go there; one that is to come, while the source is edited.
    void showPlace(const ReadingPlace& place);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showContent();
    void keepPlace();
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
    ReadingPlace m_place; ///< of the preview while the source is edited
};

} // namespace driftbox
