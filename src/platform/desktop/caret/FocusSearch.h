#pragma once

#include "platform/desktop/caret/AccessibleObject.h"

#include <functional>
#include <optional>

#include <QtCore/QObject>

namespace driftbox {

/// Searches for the text that has the focus: from the active window down to a focused element that
/// has a caret or is editable. An application that hangs does not delay the others. Destroying the
/// search cancels it. Main thread only.
class FocusSearch final : public QObject
{
    Q_OBJECT

public:
    /// Starts the search. The siblings of the element that last had the focus, if any, are searched
    /// first: in a text document the focus usually moves to the next paragraph.
    FocusSearch(const QDBusConnection& bus, const std::optional<AccessibleReference>& lastFocused,
                QObject* parent);

Q_SIGNALS:
    /// Emitted once, from the event loop; none when there is no such text.
    void finished(const std::optional<driftbox::AccessibleReference>& focused);

private:
    void searchAround(const AccessibleReference& element);
    void searchEverywhere();
    void searchApplication(const AccessibleReference& application);
    void checkTopLevel(const AccessibleReference& topLevel);
    void searchBelow(const AccessibleReference& element);
    void searchManaged(const AccessibleReference& element);
    void checkElement(const AccessibleReference& element);
    void checkText(const AccessibleReference& element, bool isEditable);

    void askChildren(const AccessibleReference& element,
                     void (FocusSearch::*forEach)(const AccessibleReference&));
    void askStates(const AccessibleReference& element,
                   std::function<void(const AccessibleStates&)> handle);
    void replyArrived();
    void finish(const std::optional<AccessibleReference>& focused);

    QDBusConnection m_bus;
    int m_pendingReplies = 0;
    int m_elementCount = 0; ///< queried so far
    bool m_hasSearchedEverywhere = false;
    bool m_isFinished = false;
};

} // namespace driftbox
