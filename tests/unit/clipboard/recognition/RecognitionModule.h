#pragma once

#include "clipboard/PageTextReader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPluginLoader>

namespace driftbox {

/// What the program loads when it reads its first picture.
[[nodiscard]] inline const PageTextReader* recognitionModule()
{
    QPluginLoader loader(QCoreApplication::applicationDirPath() +
                         QStringLiteral("/driftbox-ocr.so"));
    const auto* reader = qobject_cast<PageTextReader*>(loader.instance());
    if (reader == nullptr)
        qFatal("%s", qUtf8Printable(loader.errorString()));
    return reader;
}

} // namespace driftbox
