#pragma once

#include <functional>

#include <QtCore/QObject>
#include <QtCore/QString>

namespace driftbox {

/// The text that is selected in whatever program the user has selected some in last: what a click
/// with the middle button pastes. Main thread only.
class SelectedText
{
public:
    using Answer = std::function<void(const QString& text)>;

    SelectedText() = default;
    SelectedText(const SelectedText&) = delete;
    SelectedText& operator=(const SelectedText&) = delete;
    virtual ~SelectedText() = default;

    /// Asks that program and returns at once. `answer` is called from the event loop, within a few
    /// seconds, unless `owner` has been destroyed or something else been asked by then. The text is
    /// empty when nothing is selected, and when that program does not tell or keeps it secret.
    virtual void ask(QObject* owner, Answer answer) = 0;
};

} // namespace driftbox
