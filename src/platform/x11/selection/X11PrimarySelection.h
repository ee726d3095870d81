#pragma once

#include "platform/x11/selection/PrimarySelection.h"
#include "platform/x11/selection/SelectionOwner.h"

namespace driftbox {

class Pasteboard;

/// The PRIMARY selection, offered on the X connection of the pasteboard.
class X11PrimarySelection final : public QObject, public PrimarySelection
{
public:
    /// All of them must outlive this.
    X11PrimarySelection(X11Connection& connection, Clock& clock, const Pasteboard& pasteboard);

    void offerPasteboardText(QObject* owner, std::function<void()> offered) override;

private:
    X11Connection& m_connection;
    const Pasteboard& m_pasteboard;
    SelectionOwner m_selection;
};

} // namespace driftbox
