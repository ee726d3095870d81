#pragma once

#include <QtWidgets/QApplication>

namespace driftbox {

/// The toolkit's application, which ends whenever it is asked to: the menu, the session and signals
/// mean it, so no window is asked to close, and none can refuse.
class Application final : public QApplication
{
    Q_OBJECT

public:
    using QApplication::QApplication;

protected:
    bool event(QEvent* event) override;
};

} // namespace driftbox
