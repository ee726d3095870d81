#pragma once

#include "platform/Appearance.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVariant>

namespace driftbox {

/// What the desktop's settings portal says; where there is no portal, or it has no preference,
/// light or dark as the toolkit's palette is at the start. Nothing waits for the portal: the
/// palette stands in until it answers.
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
    void askAll();
    void ask(const QString& key);
    void apply(const QString& key, const QVariant& value);
    void applyScheme(uint preference);
    void applyAccent(const QDBusArgument& channels);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_portal; ///< it may start late, or anew
    ColorScheme m_paletteScheme;
    ColorScheme m_scheme;
    std::optional<QColor> m_accent;
};

} // namespace driftbox
