#include "platform/selection/FormatTransfer.h"

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

QString nameOf(ContentFormat format)
{
    switch (format) {
    case ContentFormat::image:
        return u"image"_s;
    case ContentFormat::text:
        return u"text"_s;
    case ContentFormat::rtf:
        return u"RTF"_s;
    case ContentFormat::opaque:
        return {};
    }
    Q_UNREACHABLE();
}

QString reasonOf(TransferFailure failure)
{
    switch (failure) {
    case TransferFailure::timedOut:
        return u"not complete within %1 s"_s.arg(
            std::chrono::duration_cast<std::chrono::seconds>(TransferLimits::deadline).count());
    case TransferFailure::tooLarge:
        return u"larger than %1 MiB"_s.arg(TransferLimits::contentSize / mebibyte);
    case TransferFailure::malformed:
        return u"its owner does not keep to the protocol"_s;
    }
    Q_UNREACHABLE();
}

} // namespace

QString refusalLine(ContentFormat format, TransferFailure failure)
{
    const QString name = nameOf(format);
    return name.isEmpty() ? name : u"Refused the clipboard's %1: %2"_s.arg(name, reasonOf(failure));
}

} // namespace driftbox
