#include "markdown/MarkdownResource.h"

#include <QtCore/QFile>
#include <QtCore/QStringDecoder>
#include <QtCore/QUuid>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// Inlined code must not close its own script element.
QString escapedScript(QString script)
{
    return script.replace(u"</script"_s, u"<\\/script"_s, Qt::CaseInsensitive);
}

} // namespace

MarkdownResource::MarkdownResource(QString resourcesFolder)
    : m_folder(std::move(resourcesFolder))
{
}

std::optional<QString> MarkdownResource::bundledString(const QString& name) const
{
    for (const QString& folder : {m_folder + u"/MarkdownReader/"_s, m_folder + u'/'}) {
        QFile file(folder + name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        QString text = decoder.decode(file.readAll());
        if (decoder.hasError())
            return std::nullopt;
        return text;
    }
    return std::nullopt;
}

std::optional<QString> MarkdownResource::shellHTML() const
{
    auto page = bundledString(u"reader.html"_s);
    const auto style = bundledString(u"theme.css"_s);
    const auto parser = bundledString(u"markdown-it.min.js"_s);
    const auto highlighter = bundledString(u"highlight.min.js"_s);
    const auto diagrams = bundledString(u"mermaid.min.js"_s);
    if (!page || !style || !parser || !highlighter || !diagrams)
        return std::nullopt;
    page->replace(u"__THEME_CSS__"_s, *style);
    page->replace(u"__MARKDOWN_IT_JS__"_s, escapedScript(*parser));
    page->replace(u"__HIGHLIGHT_JS__"_s, escapedScript(*highlighter));
    page->replace(u"__MERMAID_JS__"_s, escapedScript(*diagrams));
    return page;
}

std::optional<QByteArray> MarkdownResource::pageWithNonce() const
{
    auto page = shellHTML();
    if (!page)
        return std::nullopt;
    page->replace(u"__NONCE__"_s, QUuid::createUuid().toString(QUuid::Id128));
    return page->toUtf8();
}

} // namespace driftbox
