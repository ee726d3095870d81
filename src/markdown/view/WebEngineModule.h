#pragma once

#include "markdown/view/MarkdownWebEngine.h"

#include <memory>

#include <QtCore/QPluginLoader>

namespace driftbox {

/// Loads the shared module with the web engine. The engine is destroyed with this object; the
/// module, once loaded, stays in memory. A failure to load it is logged once.
class WebEngineModule final : public MarkdownWebEngineFactory
{
public:
    /// `path` is the module's file.
    explicit WebEngineModule(const QString& path);
    ~WebEngineModule() override;

    [[nodiscard]] std::function<void()> preloading() const override;
    [[nodiscard]] MarkdownWebEngine* engine() override;

private:
    void load();

    QString m_path;
    QPluginLoader m_loader;
    bool m_hasTriedLoading = false;
    std::unique_ptr<MarkdownWebEngine> m_engine;
};

} // namespace driftbox
