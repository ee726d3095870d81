#include "clipboard/ClipboardMonitor.h"

#include "clipboard/Characters.h"
#include "platform/Pasteboard.h"

#include <algorithm>
#include <chrono>

#include <QtCore/QLoggingCategory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(clipboardMonitorLog, "ClipboardMonitor")

constexpr auto pollInterval = 500ms;
constexpr qsizetype maxTextLength = 4000; // characters
constexpr qsizetype maxRtfSize = 65'536;  // bytes
constexpr qsizetype signatureBytes = 16;

} // namespace

ClipboardMonitor::ClipboardMonitor(Pasteboard& pasteboard, Clock& clock, QObject* parent)
    : QObject(parent)
    , m_pasteboard(pasteboard)
    , m_clock(clock)
    , m_lastChangeCount(pasteboard.changeCount())
    , m_lastSignature(currentSignature())
{
    connect(&pasteboard, &Pasteboard::initialContentArrived, this, [this] {
        if (m_pasteboard.changeCount() == m_lastChangeCount)
            m_lastSignature = currentSignature();
    });
}

void ClipboardMonitor::start()
{
    if (m_timer)
        return;
    m_timer = m_clock.every(pollInterval, [this] { tick(); });
    qCInfo(clipboardMonitorLog).noquote() << u"Monitor started"_s;
}

std::optional<ClipboardMonitor::CapturedContent> ClipboardMonitor::read() const
{
    const PasteboardContent content = m_pasteboard.content();
    if (content.png)
        return CapturedContent{.kind = ClipboardItem::Kind::image, .imageData = content.png};
    if (!content.text || content.text->isEmpty())
        return std::nullopt;

    CapturedContent captured{.text = firstCharacters(*content.text, maxTextLength)};
    if (content.rtf && content.rtf->size() <= maxRtfSize)
        captured.rtfData = content.rtf;
    return captured;
}

QString ClipboardMonitor::signature(const CapturedContent& content)
{
    if (content.kind == ClipboardItem::Kind::text)
        return u"t:"_s + content.text.value_or(QString());

    const QByteArray data = content.imageData.value_or(QByteArray());
    QString signature = u"i:%1:"_s.arg(data.size());
    for (const char byte : data.first(std::min(data.size(), signatureBytes)))
        signature += QString::number(static_cast<unsigned char>(byte));
    return signature;
}

std::optional<QString> ClipboardMonitor::currentSignature() const
{
    const auto content = read();
    return content ? std::optional(signature(*content)) : std::nullopt;
}

void ClipboardMonitor::markSeen()
{
    m_lastChangeCount = m_pasteboard.changeCount();
    m_lastSignature = currentSignature();
}

void ClipboardMonitor::tick()
{
    const qint64 changeCount = m_pasteboard.changeCount();
    if (changeCount == m_lastChangeCount)
        return;
    m_lastChangeCount = changeCount;

    const auto content = read();
    if (!content || *content == CapturedContent())
        return;
    QString signature = ClipboardMonitor::signature(*content);
    if (m_lastSignature == signature)
        return;
    m_lastSignature = std::move(signature);
    if (m_onCapture)
        m_onCapture(*content);
}

} // namespace driftbox
