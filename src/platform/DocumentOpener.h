#pragma once

#include "platform/Expected.h"

#include <QtCore/QUrl>

namespace driftbox {

/// Opens addresses and files in other programs. Main thread only; never blocks on the other
/// program: a call succeeds once that program is being started.
class DocumentOpener
{
public:
    DocumentOpener() = default;
    Q_DISABLE_COPY_MOVE(DocumentOpener)
    virtual ~DocumentOpener() = default;

    /// Opens a web address, a mail address or a file in the user's default program for it.
    virtual Expected<void> open(const QUrl& url) = 0;

    /// Selects a local file in a window of the file manager.
    virtual void reveal(const QUrl& file) = 0;

    /// Opens the accessibility page of the desktop's settings.
    virtual Expected<void> openAccessibilitySettings() = 0;
};

} // namespace driftbox
