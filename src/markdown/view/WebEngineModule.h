#pragma once

#include <memory>

#include <QtCore/QPluginLoader>

namespace driftbox {

class MarkdownWebEngine;

/// The shared module with the web engine. Main thread only. The engine ends with this object; the
/// module, once loaded, stays in memory.
class WebEngineModule
{
public:
    /// `path` is the module's file.
    explicit WebEngineModule(const QString& path);
    ~WebEngineModule();
    WebEngineModule(const WebEngineModule&) = delete;
    WebEngineModule& operator=(const WebEngineModule&) = delete;

    /// Loads the module at the first call, which takes a few hundred milliseconds. Null when it
    /// cannot be loaded, which is logged once.
    [[nodiscard]] MarkdownWebEngine* engine();

private:
    void load();

    QPluginLoader m_loader;
    bool m_isTried = false;
    std::unique_ptr<MarkdownWebEngine> m_engine;
};

} // namespace driftbox
