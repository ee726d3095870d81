#pragma once

#include "platform/PageOpener.h"

#include <QtCore/QList>

namespace driftbox {

/// Remembers what it was asked to open.
class FakePageOpener final : public PageOpener
{
public:
    [[nodiscard]] std::optional<QString> openWebPage(const QUrl& address) override
    {
        webPages << address;
        return error;
    }
    [[nodiscard]] std::optional<QString> openAccessibilitySettings() override
    {
        ++accessibilitySettings;
        return error;
    }

    std::optional<QString> error;
    QList<QUrl> webPages;
    int accessibilitySettings = 0;
};

} // namespace driftbox
