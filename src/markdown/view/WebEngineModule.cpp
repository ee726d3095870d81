#include "markdown/view/WebEngineModule.h"

#include "markdown/ReaderLog.h"

#include <utility>

#include <QtCore/QLibrary>

// Private: publicly, only the application object makes a context to share, and only as it starts.
#include <QtGui/private/qopenglcontext_p.h>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

// The engine requires a shared graphics context, though it renders in software here. With
// Qt::AA_ShareOpenGLContexts the application object would create one and load the graphics drivers
// at every start of the program. This one stays uninitialized and belongs to the toolkit.
void provideShareContext()
{
    if (qt_gl_global_share_context() == nullptr)
        qt_gl_set_global_share_context(new QOpenGLContext);
}

} // namespace

WebEngineModule::WebEngineModule(const QString& path)
    : m_path(path)
    , m_loader(path)
{
    provideShareContext();
}

WebEngineModule::~WebEngineModule() = default;

std::function<void()> WebEngineModule::preloading() const
{
    // Errors are reported when the engine is needed.
    return [path = m_path] { QLibrary(path).load(); };
}

MarkdownWebEngine* WebEngineModule::engine()
{
    if (!std::exchange(m_hasTriedLoading, true))
        load();
    return m_engine.get();
}

void WebEngineModule::load()
{
    if (auto* plugin = qobject_cast<MarkdownWebEnginePlugin*>(m_loader.instance())) {
        m_engine = plugin->makeEngine();
        return;
    }
    qCCritical(readerLog).noquote()
        << u"The web engine cannot be loaded: %1"_s.arg(m_loader.errorString());
}

} // namespace driftbox
