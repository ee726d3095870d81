#include "platform/x11/selection/X11SelectedText.h"

#include "platform/x11/connection/X11Connection.h"

#include <utility>

namespace driftbox {

X11SelectedText::X11SelectedText(X11Connection& connection, Clock& clock, TaskRunner& taskRunner)
    : m_connection(connection)
    , m_clock(clock)
    , m_taskRunner(taskRunner)
    , m_windows(connection, clock)
{
}

X11SelectedText::~X11SelectedText() = default;

void X11SelectedText::ask(QObject* owner, Answer answer)
{
    m_reader = std::make_unique<SelectionReader>(
        SelectionReader::Services{m_connection, m_clock, m_taskRunner, m_windows}, XCB_ATOM_PRIMARY,
        XCB_CURRENT_TIME, SelectionReader::Wanted::text);
    connect(m_reader.get(), &SelectionReader::contentRead, owner,
            [answer = std::move(answer)](const PasteboardContent& content) {
                answer(content.text.value_or(QString()));
            });
}

} // namespace driftbox
