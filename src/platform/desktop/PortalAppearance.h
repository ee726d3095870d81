#pragma once

#include "platform/Appearance.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVariant>

namespace driftbox {

/// The appearance reported by the desktop's settings portal. Without a portal, or when it reports
/// no preference, the color scheme is that of the toolkit's palette at startup. The portal is
/// queried asynchronously; the palette is used until it answers.
class PortalAppearance final : public Appearance
{
    Q_OBJECT

public:
    explicit PortalAppearance(const QDBusConnection& sessionBus, QObject* parent = nullptr);

    [[nodiscard]] ColorScheme colorScheme() const override { return m_scheme; }
    [[nodiscard]] std::optional<QColor> accentColor() const override { return m_accent; }

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void requestAll();
    void request(const QString& key);
    void apply(const QString& key, const QVariant& value);
    void applyScheme(uint preference);
    void applyAccent(const QDBusArgument& channels);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_portalWatcher; ///< it may start late, or restart
    ColorScheme m_paletteScheme;
    ColorScheme m_scheme;
    std::optional<QColor> m_accent;
};

} // namespace driftbox
