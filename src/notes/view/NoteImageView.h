#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace driftbox {

class StickyNoteViewModel;

/// The image of a note, scaled to the available size and aligned to device pixels. Empty while
/// there is no image.
class NoteImageView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` must outlive the view.
    NoteImageView(StickyNoteViewModel& viewModel, QWidget* parent);

    /// The height of the image at this width; 0 while there is no image.
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    StickyNoteViewModel& m_viewModel;
    QImage m_scaled; ///< the image at its painted size, in device pixels
};

} // namespace driftbox
