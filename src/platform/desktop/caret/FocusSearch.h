#pragma once

#include "platform/desktop/caret/AccessibleObject.h"

#include <functional>
#include <optional>

#include <QtCore/QObject>

namespace driftbox {

/// One search for the text that has the focus: from the window that says it is active down to an
/// element with a caret, or an editable one, that says it is focused. An application that hangs
/// holds up nothing but itself. Destroying the search ends it. Main thread only.
class FocusSearch final : public QObject
{
    Q_OBJECT

public:
    /// Starts to search. In the surroundings of the element that had the focus before, if any, it
    /// is looked for first: who writes goes on to the next paragraph.
    FocusSearch(const QDBusConnection& bus, const std::optional<AccessibleReference>& before,
                QObject* parent);

Q_SIGNALS:
    /// Once, later; none when there is no such text.
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
    void answerArrived();
    void finish(const std::optional<AccessibleReference>& focused);

    QDBusConnection m_bus;
    int m_awaited = 0; ///< answers
    int m_asked = 0;   ///< elements so far
    bool m_searchedEverywhere = false;
    bool m_finished = false;
};

} // namespace driftbox
