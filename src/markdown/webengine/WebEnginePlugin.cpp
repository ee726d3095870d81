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

// Keeps the toolkit from loading the graphics drivers, which the engine does not need. The variable
// is read once, when the engine starts; it must not be inherited by programs that this one starts.
class WithoutGraphicsDrivers
{
public:
    WithoutGraphicsDrivers()
        : m_isSetHere(!qEnvironmentVariableIsSet(name))
    {
        if (m_isSetHere)
            qputenv(name, "none");
    }
    ~WithoutGraphicsDrivers()
    {
        if (m_isSetHere)
            qunsetenv(name);
    }
    Q_DISABLE_COPY_MOVE(WithoutGraphicsDrivers)

private:
    static constexpr auto name = "QT_XCB_GL_INTEGRATION";

    bool m_isSetHere;
};

// The engine reads these settings once, when it starts.
void configureEngine()
{
    // A document needs no GPU, and drivers that are not loaded take no memory and cannot crash the
    // program.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    DocumentScheme::registerScheme();
    QByteArray chosen = flags;
    // Building the accessibility tree of a long document takes longer than rendering it, so it is
    // built only when needed.
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
        configureEngine();
    const WithoutGraphicsDrivers withoutDrivers;
    return std::make_unique<WebEngine>();
}

} // namespace driftbox
