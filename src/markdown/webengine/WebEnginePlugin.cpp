#include "markdown/webengine/WebEnginePlugin.h"

#include "markdown/ReaderLog.h"
#include "markdown/webengine/DocumentScheme.h"
#include "markdown/webengine/Sandbox.h"
#include "markdown/webengine/ScreenReader.h"
#include "markdown/webengine/WebEngine.h"

#include <utility>

#include <QtQuick/QQuickWindow>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr auto flags = "--disable-background-networking --disable-component-update "
                       "--no-first-run --no-pings --log-level=3";

// The toolkit would load the graphics drivers for an engine that draws without them. It asks once,
// when the engine starts; the programs that this one starts are to ask for themselves.
class WithoutGraphicsDrivers
{
public:
    WithoutGraphicsDrivers()
        : m_isOwn(!qEnvironmentVariableIsSet(name))
    {
        if (m_isOwn)
            qputenv(name, "none");
    }
    ~WithoutGraphicsDrivers()
    {
        if (m_isOwn)
            qunsetenv(name);
    }
    Q_DISABLE_COPY_MOVE(WithoutGraphicsDrivers)

private:
    static constexpr auto name = "QT_XCB_GL_INTEGRATION";

    bool m_isOwn;
};

// The engine reads these once, when it starts.
void setUpProcess()
{
    // A document needs no graphics card, and drivers that are not loaded take no memory and cannot
    // take the program down.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    DocumentScheme::registerScheme();
    QByteArray chosen = flags;
    // To describe a long document takes longer than to show it, so it is done for those who need
    // it.
    if (ScreenReader::isEnabled())
        chosen += " --force-renderer-accessibility";
    qputenv("QTWEBENGINE_CHROMIUM_FLAGS", chosen + ' ' + qgetenv("QTWEBENGINE_CHROMIUM_FLAGS"));
    if (!Sandbox::isPossible()) {
        qCInfo(readerLog).noquote()
            << u"The web engine runs without its sandbox, which cannot work here"_s;
        qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    }
}

} // namespace

std::unique_ptr<MarkdownWebEngine> WebEnginePlugin::makeEngine()
{
    static bool isSetUp = false;
    if (!std::exchange(isSetUp, true))
        setUpProcess();
    const WithoutGraphicsDrivers withoutDrivers;
    return std::make_unique<WebEngine>();
}

} // namespace driftbox
