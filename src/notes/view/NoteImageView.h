#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

namespace driftbox {

class StickyNoteViewModel;

/// The image of a note, as large as there is room, on whole pixels of the screen. Shows nothing
/// when there is none.
class NoteImageView final : public QWidget
{
    Q_OBJECT

public:
    /// `viewModel` must outlive the view.
    NoteImageView(StickyNoteViewModel& viewModel, QWidget* parent);

    /// How high the image is when it fills this width; 0 when there is none.
    [[nodiscard]] int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    StickyNoteViewModel& m_viewModel;
    QImage m_scaled; ///< the image at the size at which it is drawn
};

} // namespace driftbox
