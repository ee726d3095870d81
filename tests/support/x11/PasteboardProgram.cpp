#include "support/x11/PasteboardProgram.h"

namespace driftbox {

PasteboardProgram::PasteboardProgram(TaskRunner& runner)
    : connection(X11Connection::open())
    , pasteboard(*connection, clock, runner)
{
    // A round trip, so that the server has processed all requests.
    static_cast<void>(connection->atom("DRIFTBOX_TEST_IS_READY"));
}

PasteboardContent textOnly(const QString& text)
{
    return {.text = text, .rtf = {}, .png = {}};
}

} // namespace driftbox
