#include "markdown/webengine/DocumentSchemeHandler.h"

#include "markdown/webengine/DocumentScheme.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>
#include <QtWebEngineCore/QWebEngineUrlRequestJob>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

void replyWithPage(QWebEngineUrlRequestJob& job, const QByteArray& html)
{
    auto* device = new QBuffer(&job);
    device->setData(html);
    job.reply("text/html", device);
}

void replyWithPicture(QWebEngineUrlRequestJob& job)
{
    const QString path = DocumentScheme::localFile(job.requestUrl()).toLocalFile();
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path);
    // A pipe or a device might never end.
    if (!type.name().startsWith(u"image/") || !QFileInfo(path).isFile())
        return job.fail(QWebEngineUrlRequestJob::UrlNotFound);
    job.reply(type.name().toLatin1(), new QFile(path, &job));
}

} // namespace

void DocumentSchemeHandler::requestStarted(QWebEngineUrlRequestJob* job)
{
    if (job->requestMethod() != "GET")
        return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    const auto page = m_pages.constFind(job->requestUrl());
    if (page != m_pages.cend())
        replyWithPage(*job, *page);
    else
        replyWithPicture(*job);
}

} // namespace driftbox
