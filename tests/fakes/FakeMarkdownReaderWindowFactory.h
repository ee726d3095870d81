#pragma once

#include "markdown/MarkdownReaderWindow.h"

#include <vector>

namespace driftbox {

class FakeMarkdownReaderWindowFactory;

/// A window that records requests and is closed by the test.
class FakeMarkdownReaderWindow final : public MarkdownReaderWindow
{
public:
    explicit FakeMarkdownReaderWindow(FakeMarkdownReaderWindowFactory& factory);
    ~FakeMarkdownReaderWindow() override;

    void present() override { ++presented; }
    void showPlace(const ReadingPlace& place) override { places.push_back(place); }
    void setShouldClose(std::function<bool()> ask) override { shouldClose = std::move(ask); }

    int presented = 0;
    std::vector<ReadingPlace> places;
    std::function<bool()> shouldClose;
    std::function<void(const QUrl&)> openDocument;

private:
    FakeMarkdownReaderWindowFactory& m_factory;
};

/// Creates such windows and keeps track of the existing ones, in order of creation.
class FakeMarkdownReaderWindowFactory final : public MarkdownReaderWindowFactory
{
public:
    [[nodiscard]] std::unique_ptr<MarkdownReaderWindow>
    makeWindow(MarkdownReaderViewModel&, std::function<void(const QUrl&)> openDocument) override
    {
        auto window = std::make_unique<FakeMarkdownReaderWindow>(*this);
        window->openDocument = std::move(openDocument);
        return window;
    }

    std::vector<FakeMarkdownReaderWindow*> windows;
};

inline FakeMarkdownReaderWindow::FakeMarkdownReaderWindow(FakeMarkdownReaderWindowFactory& factory)
    : m_factory(factory)
{
    factory.windows.push_back(this);
}

inline FakeMarkdownReaderWindow::~FakeMarkdownReaderWindow()
{
    std::erase(m_factory.windows, this);
}

/// A file chooser in which the test chooses.
class FakeMarkdownOpenPanel final : public FileChooser
{
public:
    void run(std::function<void(const QUrl&)> callback) override
    {
        ++runs;
        chosen = std::move(callback);
    }

    int runs = 0;
    std::function<void(const QUrl&)> chosen;
};

} // namespace driftbox
