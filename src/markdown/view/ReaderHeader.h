#pragma once

#include <QtWidgets/QWidget>

namespace driftbox {

class DocumentOpener;
class MarkdownReaderViewModel;
class SymbolButton;

/// The header of a document: its name, whether it has unsaved changes, and its actions.
class ReaderHeader final : public QWidget
{
    Q_OBJECT

public:
    /// Both must outlive the header.
    ReaderHeader(MarkdownReaderViewModel& viewModel, DocumentOpener& opener, QWidget* parent);

private:
    void showMode();

    MarkdownReaderViewModel& m_viewModel;
    QWidget* m_unsavedDot;
    SymbolButton* m_editButton;
};

} // namespace driftbox
