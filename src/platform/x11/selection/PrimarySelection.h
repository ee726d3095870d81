#pragma once

#include <functional>

#include <QtCore/QObject>

namespace driftbox {

/// The selection that Shift+Insert pastes in xterm, urxvt and st. Main thread only.
class PrimarySelection
{
public:
    PrimarySelection() = default;
    PrimarySelection(const PrimarySelection&) = delete;
    PrimarySelection& operator=(const PrimarySelection&) = delete;
    virtual ~PrimarySelection() = default;

    /// Makes the pasteboard's current text the content of PRIMARY too, until another program takes
    /// it. Returns at once; `offered` is called from the event loop when the X server has been
    /// told, or when there is no text to offer, unless `owner` has been destroyed by then.
    virtual void offerPasteboardText(QObject* owner, std::function<void()> offered) = 0;
};

} // namespace driftbox
