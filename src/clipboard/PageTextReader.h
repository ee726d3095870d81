#pragma once

#include "clipboard/ReadingLimit.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QImage>

namespace driftbox {

/// The interface of the text recognition module, which is loaded on demand. Recognizes the text in
/// a picture in the installed languages. Thread-safe.
class PageTextReader
{
public:
    PageTextReader() = default;
    Q_DISABLE_COPY_MOVE(PageTextReader)
    virtual ~PageTextReader() = default;

    /// Tesseract's names of the installed languages ("eng", "chi_sim"), in no particular order.
    [[nodiscard]] virtual QStringList installedLanguages() const = 0;

    /// The text in `picture`, which must be opaque (Format_RGB32); empty if there is none or the
    /// limit is reached. Among equally likely languages the first in `languages` is preferred.
    [[nodiscard]] virtual QString read(const QImage& picture, const QStringList& languages,
                                       const ReadingLimit& limit) const = 0;
};

} // namespace driftbox

Q_DECLARE_INTERFACE(driftbox::PageTextReader, "app.driftbox.PageTextReader")
