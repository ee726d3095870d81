#pragma once

#include "markdown/view/MarkdownWebEngine.h"

#include <memory>

#include <QtCore/QPluginLoader>

namespace driftbox {

/// The shared module with the web engine. The engine ends with this object; the module, once
/// loaded, stays in memory. That it cannot be loaded is logged once.
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
    bool m_isTried = false;
    std::unique_ptr<MarkdownWebEngine> m_engine;
};

} // namespace driftbox
