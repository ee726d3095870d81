#pragma once

#include "platform/DocumentOpener.h"

#include <QtDBus/QDBusConnection>

namespace driftbox {

/// Asks the default programs and, by D-Bus, the file manager. Where no file manager answers there,
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
