#include "platform/selection/ContentDecoding.h"

#include "platform/TaskRunner.h"
#include "platform/selection/ByteSizes.h"
#include "platform/selection/ImageConversion.h"
#include "platform/selection/PasteboardTargets.h"

#include <memory>
#include <utility>

#include <QtCore/QLoggingCategory>
#include <QtCore/QStringDecoder>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(contentDecodingLog, "ContentDecoding")

constexpr qsizetype maxMainThreadSize = 64 * kibibyte;

qsizetype sizeOf(const std::optional<QByteArrayList>& pieces)
{
    qsizetype size = 0;
    for (const QByteArray& piece : pieces.value_or(QByteArrayList()))
        size += piece.size();
    return size;
}

QByteArray joined(std::optional<QByteArrayList>& pieces)
{
    const QByteArrayList taken = *std::exchange(pieces, std::nullopt);
    return taken.size() == 1 ? taken.front() : taken.join();
}

// Some programs include the terminating zeros of their strings.
QByteArrayView withoutTerminator(QByteArrayView text)
{
    while (text.endsWith('\0'))
        text.chop(1);
    return text;
}

std::optional<QString> decodeText(QByteArrayView text, const QByteArray& target)
{
    if (target == PasteboardTargets::latin1String)
        return QString::fromLatin1(text);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded = decoder.decode(text);
    if (decoder.hasError())
        return std::nullopt;
    return decoded;
}

void logRefusals(const DecodedContent& decoded)
{
    for (const QString& refusal : decoded.refusals)
        qCWarning(contentDecodingLog).noquote() << refusal;
}

} // namespace

bool RawContent::isLarge() const
{
    return image.has_value() || sizeOf(text) + sizeOf(rtf) > maxMainThreadSize;
}

DecodedContent decode(RawContent raw)
{
    DecodedContent decoded;
    if (sizeOf(raw.rtf) > 0)
        decoded.content.rtf = joined(raw.rtf);
    if (raw.text) {
        decoded.content.text = decodeText(withoutTerminator(joined(raw.text)), raw.textTarget);
        if (!decoded.content.text)
            decoded.refusals.append(u"Refused the clipboard's text: not valid UTF-8"_s);
    }
    if (raw.image) {
        ConvertedImage converted = ImageConversion::toPng(joined(raw.image));
        if (converted.refusal.isEmpty())
            decoded.content.png = std::move(converted.png);
        else
            decoded.refusals.append(u"Refused the clipboard's image: "_s + converted.refusal);
    }
    return decoded;
}

void decode(RawContent raw, TaskRunner& taskRunner, QObject* owner,
            std::function<void(const PasteboardContent&)> done)
{
    if (!raw.isLarge()) {
        const DecodedContent decoded = decode(std::move(raw));
        logRefusals(decoded);
        return done(decoded.content);
    }
    const auto shared = std::make_shared<RawContent>(std::move(raw));
    const auto decoded = std::make_shared<DecodedContent>();
    taskRunner.run(
        owner, [shared, decoded] { *decoded = decode(std::move(*shared)); },
        [decoded, done = std::move(done)] {
            logRefusals(*decoded);
            done(decoded->content);
        });
}

} // namespace driftbox
