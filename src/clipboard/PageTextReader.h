#pragma once

#include "clipboard/ReadingLimit.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace driftbox {

/// Reads the text of a picture in the languages that are installed. The recognizer stays out of the
/// program until it is needed: this is what its module has to offer. Thread-safe.
class PageTextReader
{
public:
    PageTextReader() = default;
    Q_DISABLE_COPY_MOVE(PageTextReader)
    virtual ~PageTextReader() = default;

    /// The names of the languages as Tesseract has them ("eng", "chi_sim"), in no order.
    [[nodiscard]] virtual QStringList installedLanguages() const = 0;

    /// The text in `picture`, which is opaque and of the format RGB32; empty when there is none or
    /// the limit is reached. Languages that are as likely are preferred in the order of
    /// `languages`.
    [[nodiscard]] virtual QString read(const QImage& picture, const QStringList& languages,
                                       const ReadingLimit& limit) const = 0;
};

} // namespace driftbox

Q_DECLARE_INTERFACE(driftbox::PageTextReader, "app.driftbox.PageTextReader")
