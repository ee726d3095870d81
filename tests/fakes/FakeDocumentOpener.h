#pragma once

#include "platform/DocumentOpener.h"

#include <QtCore/QList>

namespace driftbox {

/// Records the requested URLs.
class FakeDocumentOpener final : public DocumentOpener
{
public:
    Expected<void> open(const QUrl& url) override
    {
        opened << url;
        return outcome;
    }
    void reveal(const QUrl& file) override { revealed << file; }
    Expected<void> openAccessibilitySettings() override
    {
        ++accessibilitySettings;
        return outcome;
    }

    Expected<void> outcome;
    QList<QUrl> opened;
    QList<QUrl> revealed;
    int accessibilitySettings = 0;
};

} // namespace driftbox
