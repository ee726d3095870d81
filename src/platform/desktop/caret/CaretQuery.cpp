#include "platform/desktop/caret/CaretQuery.h"

#include "platform/ActiveWindow.h"
#include "platform/desktop/caret/AccessibilityNames.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// The active window is searched among at most this many windows.
constexpr qsizetype windowLimit = 32;
// Longer texts take too long to transfer.
constexpr int leadingTextLimit = 200'000;

} // namespace

CaretQuery::CaretQuery(const QDBusConnection& bus, const AccessibleReference& element,
                       ActiveWindow& activeWindow, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_element(bus, element)
    , m_application(bus, {element.service, accessibility::applicationPath})
{
    m_element.askStates(this, into(m_states));
    m_element.askExtents(this, into(m_text.element));
    m_element.askCharacterCount(this, into(m_text.characterCount));
    m_element.askSelection(this, into(m_text.selection));
    m_element.askCaretOffset(this, into(m_caretOffset));

    m_application.askToolkitName(this, into(m_toolkit));
    m_application.askChildren(this, into(m_topLevels));
    activeWindow.deviceFrame(this, into(m_deviceFrame));
}

void CaretQuery::requestContext()
{
    if (!m_states.focused || !m_caretOffset || *m_caretOffset < 0) {
        Q_EMIT finished({.focused = m_states.focused,
                         .hasCaret = m_states.focused && m_states.editable,
                         .rectangle = {},
                         .window = {}});
        return;
    }
    m_next = &CaretQuery::requestCharacters;
    m_text.caret = *m_caretOffset;
    if (m_text.caret > 0)
        m_element.askText({m_text.caret - 1, m_text.caret}, this, into(m_characterBefore));
    const int end = CaretGeometry::leadingEnd(m_text);
    if (m_toolkit == u"Qt" && end <= leadingTextLimit) {
        m_element.askText({0, end}, this, into(m_text.leading));
        m_element.askChildren(this, into(m_children));
    }
    m_topLevels.resize(std::min(m_topLevels.size(), windowLimit));
    for (const AccessibleReference& topLevel : m_topLevels)
        requestTopLevel(AccessibleObject(m_bus, topLevel));
}

void CaretQuery::requestTopLevel(const AccessibleObject& topLevel)
{
    const auto handle = [this, topLevel](const AccessibleStates& states) {
        if (states.active)
            topLevel.askExtents(this, into(m_reportedFrame));
    };
    topLevel.askStates(this, awaited<AccessibleStates>(handle));
}

void CaretQuery::requestCharacters()
{
    m_next = &CaretQuery::conclude;
    m_text.afterLineBreak = m_characterBefore == u'\n';
    if (m_text.leading.size() != CaretGeometry::leadingEnd(m_text))
        m_text.leading.clear(); // the application counts characters differently
    if (!m_children.isEmpty())
        AccessibleObject(m_bus, m_children.first()).askExtents(this, into(m_text.viewport));

    for (const int offset : CaretGeometry::decisiveCharacters(m_text)) {
        const auto handle = [this, offset](const QRect& extents) {
            m_text.characters.insert(offset, extents);
        };
        m_element.askCharacterExtents(offset, this, awaited<QRect>(handle));
    }
}

void CaretQuery::conclude()
{
    Result result{.focused = true,
                  .hasCaret = true,
                  .rectangle = CaretGeometry::caretRectangle(m_text),
                  .window = {}};
    if (m_deviceFrame && m_reportedFrame)
        result.window = {*m_reportedFrame, *m_deviceFrame};
    Q_EMIT finished(result);
}

template <typename T>
std::function<void(const std::optional<T>&)>
CaretQuery::awaited(std::function<void(const T&)> handle)
{
    ++m_pendingReplies;
    return [this, handle = std::move(handle)](const std::optional<T>& answer) {
        if (answer)
            handle(*answer);
        if (--m_pendingReplies == 0)
            (this->*m_next)();
    };
}

template <typename T>
std::function<void(const std::optional<T>&)> CaretQuery::into(T& target)
{
    return awaited<T>([&target](const T& answer) { target = answer; });
}

template <typename T>
std::function<void(const std::optional<T>&)> CaretQuery::into(std::optional<T>& target)
{
    return awaited<T>([&target](const T& answer) { target = answer; });
}

} // namespace driftbox
