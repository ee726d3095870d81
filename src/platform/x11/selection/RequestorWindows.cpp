#include "platform/x11/selection/RequestorWindows.h"

#include "platform/Clock.h"
#include "platform/x11/connection/X11Connection.h"

#include <algorithm>

namespace driftbox {

namespace {

constexpr std::chrono::seconds retiredLifetime{10};
constexpr std::size_t maxRetired = 32;

} // namespace

RequestorWindows::RequestorWindows(X11Connection& connection, Clock& clock)
    : m_connection(connection)
    , m_clock(clock)
{
}

RequestorWindows::~RequestorWindows()
{
    retireCurrent();
    while (!m_retired.empty())
        destroyOldest();
}

xcb_window_t RequestorWindows::current()
{
    if (m_current == XCB_NONE)
        m_current = m_connection.createHiddenWindow(XCB_EVENT_MASK_PROPERTY_CHANGE);
    return m_current;
}

void RequestorWindows::retireCurrent()
{
    if (m_current == XCB_NONE)
        return;
    const std::uint32_t nothing = XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection.xcb(), m_current, XCB_CW_EVENT_MASK, &nothing);
    m_retired.push_back(m_current);
    if (m_retired.size() > maxRetired)
        destroyOldest();
    m_clock.after(retiredLifetime, this, [this, window = m_current] {
        if (std::ranges::find(m_retired, window) != m_retired.end())
            destroyOldest();
    });
    m_current = XCB_NONE;
}

void RequestorWindows::destroyOldest()
{
    xcb_destroy_window(m_connection.xcb(), m_retired.front());
    m_retired.pop_front();
}

} // namespace driftbox
