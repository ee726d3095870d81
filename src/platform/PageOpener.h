#pragma once

#include <optional>

#include <QtCore/QString>
#include <QtCore/QUrl>

namespace driftbox {

/// Opens what other programs show. Main thread only; never waits for the other program.
class PageOpener
{
public:
    PageOpener() = default;
    PageOpener(const PageOpener&) = delete;
    PageOpener& operator=(const PageOpener&) = delete;
    virtual ~PageOpener() = default;

    /// All return what went wrong, or none when the other program is on its way.

    /// In the default browser.
    [[nodiscard]] virtual std::optional<QString> openWebPage(const QUrl& address) = 0;
    /// The part of the desktop's settings that is about accessibility.
    [[nodiscard]] virtual std::optional<QString> openAccessibilitySettings() = 0;
};

} // namespace driftbox
