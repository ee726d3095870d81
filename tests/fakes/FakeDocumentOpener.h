#pragma once

#include "platform/DocumentOpener.h"

#include <QtCore/QList>

namespace driftbox {

/// Keeps what it was asked for.
class FakeDocumentOpener final : public DocumentOpener
{
public:
    void open(const QUrl& url) override { opened << url; }
    void reveal(const QUrl& file) override { revealed << file; }

    QList<QUrl> opened;
    QList<QUrl> revealed;
};

} // namespace driftbox
