#include "platform/desktop/caret/FocusSearch.h"

#include "platform/desktop/caret/AccessibilityNames.h"

#include <algorithm>
#include <utility>

namespace driftbox {

namespace {

// Beyond these limits the search would put too much load on the other application.
constexpr qsizetype childLimit = 100;
constexpr int elementLimit = 1500;

} // namespace

FocusSearch::FocusSearch(const QDBusConnection& bus,
                         const std::optional<AccessibleReference>& lastFocused, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
{
    if (lastFocused)
        searchAround(*lastFocused);
    else
        searchEverywhere();
}

void FocusSearch::searchAround(const AccessibleReference& element)
{
    ++m_pendingReplies;
    AccessibleObject(m_bus, element)
        .askParent(this, [this](const std::optional<AccessibleReference>& parent) {
            if (parent && !parent->service.isEmpty())
                searchManaged(*parent);
            replyArrived();
        });
}

void FocusSearch::searchEverywhere()
{
    m_hasSearchedEverywhere = true;
    askChildren({accessibility::registryService, accessibility::applicationPath},
                &FocusSearch::searchApplication);
}

void FocusSearch::searchApplication(const AccessibleReference& application)
{
    askChildren(application, &FocusSearch::checkTopLevel);
}

void FocusSearch::checkTopLevel(const AccessibleReference& topLevel)
{
    askStates(topLevel, [this, topLevel](const AccessibleStates& states) {
        if (states.active)
            searchBelow(topLevel);
    });
}

void FocusSearch::searchBelow(const AccessibleReference& element)
{
    askChildren(element, &FocusSearch::checkElement);
}

// A spreadsheet may have too many cells to query, while the children of a text document are just
// its visible paragraphs.
void FocusSearch::searchManaged(const AccessibleReference& element)
{
    ++m_pendingReplies;
    AccessibleObject(m_bus, element)
        .askChildCount(this, [this, element](const std::optional<int>& count) {
            if (count && *count <= childLimit)
                searchBelow(element);
            replyArrived();
        });
}

// Elements without a caret, such as the active tab of a tab bar, may also report the focus.
void FocusSearch::checkElement(const AccessibleReference& element)
{
    askStates(element, [this, element](const AccessibleStates& states) {
        if (states.focused)
            checkText(element, states.editable);
        if (states.showing && states.managesDescendants)
            searchManaged(element);
        else if (states.showing)
            searchBelow(element);
    });
}

void FocusSearch::checkText(const AccessibleReference& element, bool isEditable)
{
    ++m_pendingReplies;
    AccessibleObject(m_bus, element)
        .askCaretOffset(this, [this, element, isEditable](const std::optional<int>& offset) {
            if (offset && (*offset >= 0 || isEditable))
                finish(element);
            replyArrived();
        });
}

void FocusSearch::askChildren(const AccessibleReference& element,
                              void (FocusSearch::*forEach)(const AccessibleReference&))
{
    if (m_isFinished)
        return;
    ++m_pendingReplies;
    AccessibleObject(m_bus, element).askChildren(this, [this, forEach](const auto& children) {
        const auto found = children.value_or(QList<AccessibleReference>());
        for (const auto& child : found.first(std::min(found.size(), childLimit)))
            (this->*forEach)(child);
        replyArrived();
    });
}

void FocusSearch::askStates(const AccessibleReference& element,
                            std::function<void(const AccessibleStates&)> handle)
{
    if (m_isFinished || ++m_elementCount > elementLimit)
        return;
    ++m_pendingReplies;
    AccessibleObject(m_bus, element)
        .askStates(this, [this, handle = std::move(handle)](const auto& states) {
            if (states)
                handle(*states);
            replyArrived();
        });
}

void FocusSearch::replyArrived()
{
    if (--m_pendingReplies > 0 || m_isFinished)
        return;
    if (m_hasSearchedEverywhere)
        finish(std::nullopt);
    else
        searchEverywhere();
}

void FocusSearch::finish(const std::optional<AccessibleReference>& focused)
{
    if (!std::exchange(m_isFinished, true))
        Q_EMIT finished(focused);
}

} // namespace driftbox
