#include "platform/desktop/caret/FocusSearch.h"

#include "platform/desktop/caret/AccessibilityNames.h"

#include <algorithm>
#include <utility>

namespace driftbox {

namespace {

// Beyond these the search costs the other application more than the answer is worth.
constexpr qsizetype childLimit = 100;
constexpr int elementLimit = 1500;

} // namespace

FocusSearch::FocusSearch(const QDBusConnection& bus,
                         const std::optional<AccessibleReference>& before, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
{
    if (before)
        searchAround(*before);
    else
        searchEverywhere();
}

void FocusSearch::searchAround(const AccessibleReference& element)
{
    ++m_awaited;
    AccessibleObject(m_bus, element)
        .askParent(this, [this](const std::optional<AccessibleReference>& parent) {
            if (parent && !parent->service.isEmpty())
                searchManaged(*parent);
            answerArrived();
        });
}

void FocusSearch::searchEverywhere()
{
    m_searchedEverywhere = true;
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

// A sheet may have more cells than anybody could ask for, while the children of a text are the
// paragraphs that are seen.
void FocusSearch::searchManaged(const AccessibleReference& element)
{
    ++m_awaited;
    AccessibleObject(m_bus, element)
        .askChildCount(this, [this, element](const std::optional<int>& count) {
            if (count && *count <= childLimit)
                searchBelow(element);
            answerArrived();
        });
}

// The active tab of a tab bar, say, may claim the focus too, but it has no caret.
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
    ++m_awaited;
    AccessibleObject(m_bus, element)
        .askCaretOffset(this, [this, element, isEditable](const std::optional<int>& offset) {
            if (offset && (*offset >= 0 || isEditable))
                finish(element);
            answerArrived();
        });
}

void FocusSearch::askChildren(const AccessibleReference& element,
                              void (FocusSearch::*forEach)(const AccessibleReference&))
{
    if (m_finished)
        return;
    ++m_awaited;
    AccessibleObject(m_bus, element).askChildren(this, [this, forEach](const auto& children) {
        const auto found = children.value_or(QList<AccessibleReference>());
        for (const auto& child : found.first(std::min(found.size(), childLimit)))
            (this->*forEach)(child);
        answerArrived();
    });
}

void FocusSearch::askStates(const AccessibleReference& element,
                            std::function<void(const AccessibleStates&)> handle)
{
    if (m_finished || ++m_asked > elementLimit)
        return;
    ++m_awaited;
    AccessibleObject(m_bus, element)
        .askStates(this, [this, handle = std::move(handle)](const auto& states) {
            if (states)
                handle(*states);
            answerArrived();
        });
}

void FocusSearch::answerArrived()
{
    if (--m_awaited > 0 || m_finished)
        return;
    if (m_searchedEverywhere)
        finish(std::nullopt);
    else
        searchEverywhere();
}

void FocusSearch::finish(const std::optional<AccessibleReference>& focused)
{
    if (!std::exchange(m_finished, true))
        Q_EMIT finished(focused);
}

} // namespace driftbox
