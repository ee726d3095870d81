#include "platform/x11/selection/X11PrimarySelection.h"

#include "platform/Pasteboard.h"
#include "platform/x11/connection/X11Connection.h"

#include <QtCore/QPointer>

namespace driftbox {

X11PrimarySelection::X11PrimarySelection(X11Connection& connection, Clock& clock,
                                         const Pasteboard& pasteboard)
    : m_connection(connection)
    , m_pasteboard(pasteboard)
    , m_selection(connection, clock, "PRIMARY")
{
}

void X11PrimarySelection::offerPasteboardText(QObject* owner, std::function<void()> offered)
{
    const PasteboardContent text{.text = m_pasteboard.content().text, .rtf = {}, .png = {}};
    m_connection.whenServerTimeKnown(this, [this, text, owner = QPointer(owner),
                                            offered = std::move(offered)](xcb_timestamp_t time) {
        if (text.text)
            m_selection.claim(OfferedContent(text), time);
        if (owner)
            offered();
    });
}

} // namespace driftbox
