#pragma once

#include <QtCore/QUrl>

namespace driftbox {

/// Hands addresses and files over to the other programs of the desktop. Main thread only; never
/// waits for the other program, and nothing is told when there is none.
class DocumentOpener
{
public:
    DocumentOpener() = default;
    DocumentOpener(const DocumentOpener&) = delete;
    DocumentOpener& operator=(const DocumentOpener&) = delete;
    virtual ~DocumentOpener() = default;

    /// Opens a web address, a mail address or a file with the user's default program for it.
    virtual void open(const QUrl& url) = 0;

    /// Shows a local file, selected, in a window of the file manager.
    virtual void reveal(const QUrl& file) = 0;
};

} // namespace driftbox
