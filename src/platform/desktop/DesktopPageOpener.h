#pragma once

#include "platform/PageOpener.h"

namespace driftbox {

/// Asks the desktop's default programs.
class DesktopPageOpener final : public PageOpener
{
public:
    [[nodiscard]] std::optional<QString> openWebPage(const QUrl& address) override;
    /// Starts the settings program of the running desktop, or else any that is installed.
    [[nodiscard]] std::optional<QString> openAccessibilitySettings() override;
};

} // namespace driftbox
