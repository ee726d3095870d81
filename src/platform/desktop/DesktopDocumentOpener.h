#pragma once

#include "platform/DocumentOpener.h"

#include <QtDBus/QDBusConnection>

namespace driftbox {

/// Starts the default programs and, through D-Bus, the file manager. If no file manager answers,
/// the file's folder is opened.
class DesktopDocumentOpener final : public DocumentOpener
{
public:
    explicit DesktopDocumentOpener(const QDBusConnection& sessionBus);

    Expected<void> open(const QUrl& url) override;
    void reveal(const QUrl& file) override;
    Expected<void> openAccessibilitySettings() override;

private:
    QDBusConnection m_bus;
};

} // namespace driftbox
