#pragma once

#include "platform/Expected.h"

#include <QtCore/QUrl>

namespace driftbox {

/// Hands addresses and files over to the other programs of the desktop. Main thread only; never
/// waits for the other program: a call has worked when that is on its way.
class DocumentOpener
{
public:
    DocumentOpener() = default;
    Q_DISABLE_COPY_MOVE(DocumentOpener)
    virtual ~DocumentOpener() = default;

    /// Opens a web address, a mail address or a file with the user's default program for it.
    virtual Expected<void> open(const QUrl& url) = 0;

    /// Shows a local file, selected, in a window of the file manager.
    virtual void reveal(const QUrl& file) = 0;

    /// Opens the part of the desktop's settings that is about accessibility.
    virtual Expected<void> openAccessibilitySettings() = 0;
};

} // namespace driftbox
