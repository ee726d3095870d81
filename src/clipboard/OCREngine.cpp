#include "clipboard/OCREngine.h"

#include "clipboard/InstalledLanguages.h"
#include "clipboard/PageTextReader.h"
#include "clipboard/PictureDecoding.h"
#include "core/AppConfig.h"

#include <QtCore/QLocale>
#include <QtCore/QLoggingCategory>
#include <QtCore/QPluginLoader>
#include <QtGui/QImage>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

Q_LOGGING_CATEGORY(ocrEngineLog, "OCREngine")

/// Simplified and Traditional Chinese, English, Japanese, Korean.
const QStringList& usualLanguages()
{
    static const QStringList languages = {u"chi_sim"_s, u"chi_tra"_s, u"eng"_s, u"jpn"_s, u"kor"_s};
    return languages;
}

const PageTextReader* loadedModule()
{
    // The initialization of a static variable is thread-safe.
    static const PageTextReader* const reader = [] {
        QPluginLoader loader(AppConfig::modulesFolder() + u"/driftbox_ocr.so"_s);
        const auto* loaded = qobject_cast<PageTextReader*>(loader.instance());
        if (loaded == nullptr)
            qCCritical(ocrEngineLog).noquote()
                << u"Text recognition is missing: %1"_s.arg(loader.errorString());
        return loaded;
    }();
    return reader;
}

} // namespace

OCREngine::OCREngine(std::chrono::milliseconds limit)
    : OCREngine(loadedModule, limit)
{
}

OCREngine::OCREngine(ReaderSource source, std::chrono::milliseconds limit)
    : m_source(std::move(source))
    , m_limit(limit)
{
}

QString OCREngine::recognizeText(const QByteArray& image) const
{
    const ReadingLimit limit(m_limit, m_stop.get_token());
    const QImage picture = decodedPicture(image);
    if (picture.isNull())
        return {};
    const PageTextReader* const reader = m_source();
    if (reader == nullptr)
        return {};
    if (const auto text = run(*reader, picture, usualLanguages(), limit))
        return *text;
    const QStringList languages =
        preferredLanguages(reader->installedLanguages(), QLocale::system(), usualLanguages());
    return run(*reader, picture, languages, limit).value_or(QString());
}

std::optional<QString> OCREngine::run(const PageTextReader& reader, const QImage& picture,
                                      const QStringList& languages, const ReadingLimit& limit)
{
    if (languages.isEmpty())
        return std::nullopt;
    const QStringList installed = reader.installedLanguages();
    for (const QString& language : languages) {
        if (!installed.contains(language))
            return std::nullopt;
    }
    return reader.read(picture, languages, limit);
}

} // namespace driftbox
