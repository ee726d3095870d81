#pragma once

#include <functional>

#include <QtCore/QObject>
#include <QtCore/QString>

namespace driftbox {

/// The most recently selected text of any program: what a middle click pastes. Main thread only.
class SelectedText
{
public:
    using Answer = std::function<void(const QString& text)>;

    SelectedText() = default;
    Q_DISABLE_COPY_MOVE(SelectedText)
    virtual ~SelectedText() = default;

    /// Requests the text asynchronously. `answer` is called from the event loop, within a few
    /// seconds, unless `owner` has been destroyed or another request has been made by then. The
    /// text is empty when nothing is selected, when the program does not respond, and when the text
    /// is marked as secret.
    virtual void ask(QObject* owner, Answer answer) = 0;
};

} // namespace driftbox
