#include "clipboard/recognition/module/TesseractModule.h"

#include "clipboard/recognition/PageReader.h"
#include "core/modules/LibraryPages.h"

#include <vector>

#include <malloc.h>
#include <tesseract/baseapi.h>

namespace driftbox {

TesseractModule::TesseractModule()
{
    // Tesseract's messages are of no use to the user. The setting is global.
    tesseract::TessBaseAPI().SetVariable("debug_file", "/dev/null");
}

QStringList TesseractModule::installedLanguages() const
{
    tesseract::TessBaseAPI api;
    // Without a language this only sets the folder to list.
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
    // The program runs for days: release all the memory that reading took.
    tesseract::TessBaseAPI::ClearPersistentCache();
    malloc_trim(0);
    releaseLibraryPages();
    return text;
}

} // namespace driftbox
