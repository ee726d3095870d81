#pragma once

#include "platform/SelectedText.h"
#include "platform/x11/selection/RequestorWindows.h"
#include "platform/x11/selection/SelectionReader.h"

#include <memory>

namespace driftbox {

/// The text of the PRIMARY selection, which may be this program's own.
class X11SelectedText final : public QObject, public SelectedText
{
public:
    /// All must outlive this.
    X11SelectedText(X11Connection& connection, Clock& clock, TaskRunner& taskRunner);
    ~X11SelectedText() override;

    void ask(QObject* owner, Answer answer) override;

private:
    X11Connection& m_connection;
    Clock& m_clock;
    TaskRunner& m_taskRunner;
    RequestorWindows m_windows;
    std::unique_ptr<SelectionReader> m_reader; ///< of the latest request
};

} // namespace driftbox
