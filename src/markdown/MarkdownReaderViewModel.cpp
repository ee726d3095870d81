#include "markdown/MarkdownReaderViewModel.h"

#include "markdown/ReaderLog.h"
#include "platform/FileSystem.h"

#include <optional>

#include <QtCore/QStringDecoder>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// Keeps a byte order mark in the text, so that saving preserves it.
std::optional<QString> decodedUtf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless |
                                                     QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace

MarkdownReaderViewModel::MarkdownReaderViewModel(const QUrl& url, FileSystem& fileSystem,
                                                 QObject* parent)
    : QObject(parent)
    , m_fileURL(url)
    , m_displayName(url.fileName())
    , m_fileSystem(fileSystem)
{
}

void MarkdownReaderViewModel::setMarkdown(const QString& markdown)
{
    if (m_markdown != markdown) {
        m_markdown = markdown;
        Q_EMIT markdownChanged();
    }
    if (!m_isLoading)
        setHasUnsavedChanges(true);
}

void MarkdownReaderViewModel::setHasUnsavedChanges(bool hasUnsavedChanges)
{
    if (m_hasUnsavedChanges == hasUnsavedChanges)
        return;
    m_hasUnsavedChanges = hasUnsavedChanges;
    Q_EMIT hasUnsavedChangesChanged();
}

void MarkdownReaderViewModel::setIsEditing(bool isEditing)
{
    if (m_isEditing == isEditing)
        return;
    m_isEditing = isEditing;
    Q_EMIT isEditingChanged();
}

void MarkdownReaderViewModel::setIsLoading(bool isLoading)
{
    if (m_isLoading == isLoading)
        return;
    m_isLoading = isLoading;
    Q_EMIT isLoadingChanged();
}

void MarkdownReaderViewModel::load()
{
    setIsLoading(true);
    setMarkdown(readText());
    setHasUnsavedChanges(false);
    setIsLoading(false);
}

QString MarkdownReaderViewModel::readText() const
{
    const auto bytes = m_fileSystem.read(m_fileURL.toLocalFile());
    if (!bytes) {
        qCCritical(readerLog).noquote() << u"Could not read %1"_s.arg(m_displayName);
        return {};
    }
    if (auto text = decodedUtf8(*bytes))
        return *text;
    qCCritical(readerLog).noquote() << u"Read %1 as Latin-1 (not UTF-8)"_s.arg(m_displayName);
    return QString::fromLatin1(*bytes);
}

bool MarkdownReaderViewModel::save()
{
    if (!m_hasUnsavedChanges)
        return true;
    const auto saved = m_fileSystem.replaceDocument(m_fileURL.toLocalFile(), m_markdown.toUtf8());
    if (!saved) {
        qCCritical(readerLog).noquote()
            << u"Save failed for %1: %2"_s.arg(m_displayName, saved.error().message);
        return false;
    }
    setHasUnsavedChanges(false);
    return true;
}

void MarkdownReaderViewModel::toggleEdit()
{
    if (m_isEditing)
        save();
    setIsEditing(!m_isEditing);
}

} // namespace driftbox
