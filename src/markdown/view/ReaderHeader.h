#pragma once

#include <QtWidgets/QWidget>

namespace driftbox {

class DocumentOpener;
class MarkdownReaderViewModel;
class SymbolButton;

/// The bar above a document: its name, whether it has unsaved changes, and what can be done to it.
class ReaderHeader final : public QWidget
{
    Q_OBJECT

public:
    /// Both must outlive the bar.
    ReaderHeader(MarkdownReaderViewModel& viewModel, DocumentOpener& opener, QWidget* parent);

private:
    void showMode();

    MarkdownReaderViewModel& m_viewModel;
    QWidget* m_unsavedDot;
    SymbolButton* m_editButton;
};

} // namespace driftbox
