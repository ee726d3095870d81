#pragma once

#include "markdown/view/MarkdownWebEngine.h"

namespace driftbox {

/// The root object of the module.
class WebEnginePlugin final : public QObject, public MarkdownWebEnginePlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID DRIFTBOX_WEB_ENGINE_ID)
    Q_INTERFACES(driftbox::MarkdownWebEnginePlugin)

public:
    [[nodiscard]] std::unique_ptr<MarkdownWebEngine> makeEngine() override;
};

} // namespace driftbox
