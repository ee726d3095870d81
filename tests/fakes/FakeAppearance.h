#pragma once

#include "platform/Appearance.h"

namespace driftbox {

/// A desktop whose color scheme and accent color are set by the test.
class FakeAppearance final : public Appearance
{
public:
    using Appearance::Appearance;

    [[nodiscard]] ColorScheme colorScheme() const override { return m_scheme; }
    void setColorScheme(ColorScheme scheme)
    {
        if (m_scheme == scheme)
            return;
        m_scheme = scheme;
        Q_EMIT colorSchemeChanged(scheme);
    }

    [[nodiscard]] std::optional<QColor> accentColor() const override { return m_accent; }
    void setAccentColor(std::optional<QColor> accent)
    {
        m_accent = accent;
        Q_EMIT accentColorChanged();
    }

private:
    std::optional<QColor> m_accent;
    ColorScheme m_scheme = ColorScheme::light;
};

} // namespace driftbox
