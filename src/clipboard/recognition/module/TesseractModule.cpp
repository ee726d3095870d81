#include "clipboard/recognition/module/TesseractModule.h"

#include "clipboard/recognition/PageReader.h"
#include "core/modules/LibraryPages.h"

#include <vector>

#include <malloc.h>
#include <tesseract/baseapi.h>

namespace driftbox {

TesseractModule::TesseractModule()
{
    // What Tesseract remarks on pictures is of no use to the user. The setting is a global one.
    tesseract::TessBaseAPI().SetVariable("debug_file", "/dev/null");
}

QStringList TesseractModule::installedLanguages() const
{
    tesseract::TessBaseAPI api;
    // Without a language nothing is loaded: the folder of the languages is all that is wanted.
    api.Init(nullptr, "");
    std::vector<std::string> names;
    api.GetAvailableLanguagesAsVector(&names);
    QStringList languages;
    for (const std::string& name : names)
        languages.push_back(QString::fromStdString(name));
    return languages;
}

QString TesseractModule::read(const QImage& picture, const QStringList& languages,
                              const ReadingLimit& limit) const
{
    QString text = readPage(picture, languages, limit);
    // The program lives on for days: nothing stays behind of what reading took.
    tesseract::TessBaseAPI::ClearPersistentCache();
    malloc_trim(0);
    releaseLibraryPages();
    return text;
}

} // namespace driftbox
