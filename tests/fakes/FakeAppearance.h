#pragma once

#include "platform/Appearance.h"

namespace driftbox {

/// A desktop that turns light or dark when a test says so.
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

private:
    ColorScheme m_scheme = ColorScheme::light;
};

} // namespace driftbox
