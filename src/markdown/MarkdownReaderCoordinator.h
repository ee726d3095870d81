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

/// The open reader windows, one per file. Main thread only; opening a file blocks until it is read.
class MarkdownReaderCoordinator : public QObject
{
    Q_OBJECT

public:
    /// All references must outlive the coordinator.
    struct Services
    {
        FileSystem& fileSystem;
        MarkdownReaderWindowFactory& windows;
        FileChooser& openPanel;
    };

    explicit MarkdownReaderCoordinator(const Services& services, QObject* parent = nullptr);
    /// Closes the windows and saves unsaved changes.
    ~MarkdownReaderCoordinator() override;

    /// Opens the local file in its own window, or raises the window that already shows it without
    /// reading the file again. Scrolls to the address's fragment, if any. A file that cannot be
    /// read opens as an empty document.
    void open(const QUrl& url);

    /// Lets the user choose the file to open.
    void openViaPanel();

    /// The open windows by their files' standardized addresses.
    [[nodiscard]] const auto& controllers() const { return m_controllers; }

private:
    struct Hash
    {
        size_t operator()(const QUrl& url) const { return qHash(url); }
    };

    void forget(const QUrl& key);

    Services m_services;
    std::unordered_map<QUrl, std::unique_ptr<MarkdownReaderWindowController>, Hash> m_controllers;
    /// Kept until their windows have finished closing.
    std::vector<std::unique_ptr<MarkdownReaderWindowController>> m_closing;
};

/// The canonical address of a file: an absolute path without dots and redundant separators.
[[nodiscard]] QUrl standardizedFileURL(const QUrl& url);

} // namespace driftbox
