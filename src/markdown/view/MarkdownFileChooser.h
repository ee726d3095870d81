#pragma once

#include "markdown/MarkdownReaderWindow.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QFileDialog>

namespace driftbox {

class StandardWindows;

/// The desktop's file dialog.
class MarkdownFileChooser final : public FileChooser
{
public:
    /// `windows` must outlive this.
    explicit MarkdownFileChooser(StandardWindows& windows);
    ~MarkdownFileChooser() override;

    void run(std::function<void(const QUrl&)> chosen) override;

private:
    StandardWindows& m_windows;
    QPointer<QFileDialog> m_dialog;
};

/// Restricts the dialog to files of the system's Markdown type, or to those ending in "md" where
/// the system does not know that type.
void setMarkdownFilter(QFileDialog& dialog, bool systemKnowsMarkdown);

} // namespace driftbox
