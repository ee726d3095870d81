#include "markdown/MarkdownFiles.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStringList>

using namespace Qt::StringLiterals;

namespace driftbox {

bool isMarkdownFile(const QUrl& url)
{
    static const QStringList extensions{u"md"_s, u"markdown"_s, u"mdown"_s, u"mkd"_s};
    return extensions.contains(QFileInfo(url.path()).suffix().toLower());
}

} // namespace driftbox
