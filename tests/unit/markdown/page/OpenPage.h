#pragma once

#include "markdown/MarkdownResource.h"
#include "markdown/view/MarkdownWebEngine.h"
#include "markdown/view/WebEngineModule.h"
#include "support/VirtualDesktop.h"
#include "unit/markdown/page/RecordingDelegate.h"

#include <functional>
#include <memory>
#include <optional>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWebEngineCore/QWebEnginePage>
#include <QtWebEngineCore/QWebEngineProfile>
#include <QtWebEngineWidgets/QWebEngineView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace driftbox {

/// Waits in the event loop until `condition` holds. The engine's threads and this one exchange many
/// messages, which the sleeps of Qt Test's own waiting would slow down.
[[nodiscard]] inline bool waitFor(const std::function<bool()>& condition, int timeoutMs = 30'000)
{
    constexpr int intervalMs = 2;
    const QDeadlineTimer deadline(timeoutMs);
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (condition() || deadline.hasExpired())
            loop.quit();
    });
    timer.start(intervalMs);
    if (!condition())
        loop.exec();
    return condition();
}

/// The program's page in the real engine, in a window.
class OpenPage
{
public:
    OpenPage(MarkdownWebEngine& engine, const QString& folder)
    {
        m_window.resize(780, 640);
        m_page = engine.makePage(m_delegate, m_window);
        m_page->widget().setGeometry(m_window.rect());
        m_page->load(*MarkdownResource(QStringLiteral(DRIFTBOX_TEST_RESOURCES)).pageWithNonce(),
                     QUrl::fromLocalFile(folder + u'/'));
        m_window.show();
    }

    [[nodiscard]] bool isLoaded()
    {
        return waitFor([this] { return m_delegate.navigations; });
    }

    /// Whether the page reports that it is done.
    [[nodiscard]] bool render(const QString& text, const QString& theme = QStringLiteral("light"))
    {
        const int before = m_delegate.renderings;
        m_page->renderMarkdown(text, theme);
        return waitFor([this, before] { return m_delegate.renderings > before; });
    }

    /// The value of an expression in the page; none if the page is closed meanwhile.
    [[nodiscard]] QVariant value(const QString& expression)
    {
        constexpr int timeoutMs = 5'000;
        const auto result = std::make_shared<std::optional<QVariant>>();
        engine().runJavaScript(expression, [result](const QVariant& value) { *result = value; });
        return waitFor([&] { return result->has_value(); }, timeoutMs) ? **result : QVariant();
    }

    /// Waits for an expression to become true.
    [[nodiscard]] bool becomesTrue(const QString& expression)
    {
        return waitFor([&] { return value(expression).toBool(); });
    }

    /// The rendered document, without the line numbers of its blocks.
    [[nodiscard]] QString html()
    {
        return value(QStringLiteral("document.getElementById('document').innerHTML"
                                    ".replace(/ data-line=\"\\d*\"/g, '').trim()"))
            .toString();
    }

    RecordingDelegate& delegate() { return m_delegate; }
    MarkdownPageView& page() { return *m_page; }
    [[nodiscard]] QWebEnginePage& engine()
    {
        return *m_page->widget().findChild<QWebEngineView*>()->page();
    }

private:
    RecordingDelegate m_delegate;
    QWidget m_window;
    std::unique_ptr<MarkdownPageView> m_page;
};

/// The folder of the documents, and the engine.
class PageTest : public QObject
{
protected:
    void openPage()
    {
        if (!m_module) {
            m_module = std::make_unique<WebEngineModule>(
                QStringLiteral(DRIFTBOX_TEST_MODULES "/driftbox_webengine.so"));
        }
        m_open.reset();
        QVERIFY(m_folder.isValid());
        QVERIFY(m_module->engine());
        m_open = std::make_unique<OpenPage>(*m_module->engine(), m_folder.path());
        QVERIFY(m_open->isLoaded());
    }

    void closeEngine() { m_open.reset(), m_module.reset(); }
    QTemporaryDir m_folder;
    std::unique_ptr<WebEngineModule> m_module;
    std::unique_ptr<OpenPage> m_open;
};

/// Runs a test class of pages. Its executable links the engine, which then asks for a share context
/// from the application object.
template <typename TestClass>
int runPageTest(int argc, char** argv)
{
    const VirtualDesktop desktop;
    const QTemporaryDir runtime;
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    return runTest<TestClass, QApplication>(argc, argv);
}

} // namespace driftbox

/// Registers a test class of pages.
#define DRIFTBOX_PAGE_TEST(TestClass)                                                              \
    DRIFTBOX_TEST_MAIN(TestClass, driftbox::runPageTest<TestClass>)
