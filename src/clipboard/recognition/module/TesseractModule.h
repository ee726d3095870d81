#pragma once

#include "clipboard/PageTextReader.h"

#include <QtCore/QObject>

namespace driftbox {

/// The plugin in the module driftbox_ocr.so.
class TesseractModule final : public QObject, public PageTextReader
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "app.driftbox.PageTextReader")
    Q_INTERFACES(driftbox::PageTextReader)

public:
    TesseractModule();

    [[nodiscard]] QStringList installedLanguages() const override;
    [[nodiscard]] QString read(const QImage& picture, const QStringList& languages,
                               const ReadingLimit& limit) const override;
};

} // namespace driftbox
