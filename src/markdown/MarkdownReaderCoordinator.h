#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace driftbox {

class FileSystem;
class FileChooser;
class MarkdownReaderWindowController;
class MarkdownReaderWindowFactory;

/// The open reader windows, one a file. Main thread only; opening a file waits for it to be read.
class MarkdownReaderCoordinator : public QObject
{
    Q_OBJECT

public:
    /// Everything must outlive the coordinator.
    struct Services
    {
        FileSystem& fileSystem;
        MarkdownReaderWindowFactory& windows;
        FileChooser& openPanel;
    };

    explicit MarkdownReaderCoordinator(const Services& services, QObject* parent = nullptr);
    /// Closes the windows; what was not saved is saved.
    ~MarkdownReaderCoordinator() override;

    /// Opens the local file in a window of its own, or brings the one that shows it to the front
    /// without reading the file again; at the part that a fragment of the address names. A file
    /// that cannot be read opens as an empty document.
    void open(const QUrl& url);

    /// Lets the user choose the file to open.
    void openViaPanel();

    /// The open windows by the standardized address of their file.
    [[nodiscard]] const auto& controllers() const { return m_controllers; }

private:
    struct Hash
    {
        size_t operator()(const QUrl& url) const { return qHash(url); }
    };

    void forget(const QUrl& key);

    Services m_services;
    std::unordered_map<QUrl, std::unique_ptr<MarkdownReaderWindowController>, Hash> m_controllers;
    /// Until their windows, which are at work on closing, are done.
    std::vector<std::unique_ptr<MarkdownReaderWindowController>> m_closing;
};

/// The same file in one form: dots resolved, no redundant separators, an absolute path.
[[nodiscard]] QUrl standardizedFileURL(const QUrl& url);

} // namespace driftbox
