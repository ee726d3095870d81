#pragma once

#include <functional>

#include <QtCore/QObject>

namespace driftbox {

/// The selection that Shift+Insert pastes in xterm, urxvt and st. Main thread only.
class PrimarySelection
{
public:
    PrimarySelection() = default;
    Q_DISABLE_COPY_MOVE(PrimarySelection)
    virtual ~PrimarySelection() = default;

    /// Offers the pasteboard's current text on PRIMARY too, until another program claims it.
    /// Returns at once; `offered` is called from the event loop after the claim has been sent to
    /// the X server, or when there is no text to offer, unless `owner` has been destroyed by then.
    virtual void offerPasteboardText(QObject* owner, std::function<void()> offered) = 0;
};

} // namespace driftbox
