#include "platform/selection/OfferedContent.h"

#include "platform/selection/ByteSizes.h"

#include <algorithm>

namespace driftbox {

namespace {

// Checking a longer text takes too long, and programs limited to Latin-1 hardly ever paste one.
constexpr qsizetype maxLatin1Size = mebibyte;

// Shorter texts are encoded at once, so that their size is known.
constexpr qsizetype maxEagerlyEncodedSize = mebibyte;

bool isLatin1(const QString& text)
{
    return text.size() <= maxLatin1Size &&
           std::ranges::all_of(text, [](QChar character) { return character.unicode() < 256; });
}

class BytesInMemory final : public ByteStream
{
public:
    explicit BytesInMemory(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {
    }

    [[nodiscard]] qsizetype minRemaining() const override { return m_bytes.size() - m_position; }
    [[nodiscard]] qsizetype maxRemaining() const override { return minRemaining(); }
    [[nodiscard]] QByteArray next(qsizetype size) override
    {
        QByteArray part = m_bytes.mid(m_position, size);
        m_position += part.size();
        return part;
    }

private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
};

class Utf8OfText final : public ByteStream
{
public:
    explicit Utf8OfText(QString text)
        : m_text(std::move(text))
    {
    }

    [[nodiscard]] qsizetype minRemaining() const override { return m_text.size() - m_position; }
    [[nodiscard]] qsizetype maxRemaining() const override { return minRemaining() * bytesPerUnit; }
    [[nodiscard]] QByteArray next(qsizetype size) override
    {
        QStringView part = QStringView(m_text).mid(m_position, size / bytesPerUnit);
        if (!part.isEmpty() && part.back().isHighSurrogate() && part.size() > 1)
            part.chop(1); // keep the surrogate pair together
        m_position += part.size();
        return part.toUtf8();
    }

private:
    static constexpr qsizetype bytesPerUnit = 3; ///< at most; at least one

    QString m_text;
    qsizetype m_position = 0;
};

} // namespace

OfferedContent::OfferedContent(const PasteboardContent& content, const OpaqueFormats& opaque)
    : m_content(content)
    , m_opaque(opaque)
{
    using namespace PasteboardTargets;
    if (content.png)
        m_targets.append(png);
    if (content.text) {
        m_targets += {utf8String, utf8Text, plainText, anyText};
        if (isLatin1(*content.text))
            m_targets.append(latin1String);
    }
    if (content.rtf)
        m_targets += rtfNames();
    m_targets += opaque.keys();
}

QByteArray OfferedContent::typeOf(const QByteArray& target)
{
    return target == PasteboardTargets::anyText ? QByteArray(PasteboardTargets::utf8String)
                                                : target;
}

std::unique_ptr<ByteStream> OfferedContent::open(const QByteArray& target) const
{
    using namespace PasteboardTargets;
    if (const auto opaque = m_opaque.constFind(target); opaque != m_opaque.cend())
        return std::make_unique<BytesInMemory>(*opaque);
    if (target == png)
        return std::make_unique<BytesInMemory>(*m_content.png);
    if (rtfNames().contains(target))
        return std::make_unique<BytesInMemory>(*m_content.rtf);
    if (target == latin1String)
        return std::make_unique<BytesInMemory>(m_content.text->toLatin1());
    if (m_content.text->size() > maxEagerlyEncodedSize)
        return std::make_unique<Utf8OfText>(*m_content.text);
    return std::make_unique<BytesInMemory>(m_content.text->toUtf8());
}

} // namespace driftbox
