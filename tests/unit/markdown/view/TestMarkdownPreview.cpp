#include "markdown/view/MarkdownEditor.h"
#include "markdown/view/MarkdownReaderView.h"
#include "support/main/TestMain.h"
#include "unit/markdown/OpenDocument.h"

#include <optional>
#include <vector>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

/// Records what the pages of an engine are asked to do.
struct Requests
{
    QStringList loads; ///< the addresses of the folders
    QStringList renders;
    std::vector<ReadingPlace> places;
    QList<QColor> colors;
    MarkdownPageDelegate* delegate = nullptr; ///< of the newest page
    int pages = 0;                            ///< those that exist
};

/// A page that is loaded when the test says so.
class RecordingPage final : public MarkdownPageView
{
public:
    RecordingPage(Requests& requests, QWidget& parent)
        : m_requests(requests)
        , m_widget(std::make_unique<QWidget>(&parent))
    {
        ++m_requests.pages;
    }
    RecordingPage(const RecordingPage&) = delete;
    RecordingPage& operator=(const RecordingPage&) = delete;
    ~RecordingPage() override { --m_requests.pages; }

    [[nodiscard]] QWidget& widget() override { return *m_widget; }
    void setUnderPageColor(const QColor& color) override { m_requests.colors << color; }
    void load(const QByteArray& /*html*/, const QUrl& baseURL) override
    {
        m_requests.loads << baseURL.toString();
    }
    void renderMarkdown(const QString& text, const QString& theme) override
    {
        m_requests.renders << theme + u": "_s + text;
    }
    void showPlace(const ReadingPlace& place) override { m_requests.places.push_back(place); }

private:
    Requests& m_requests;
    std::unique_ptr<QWidget> m_widget;
};

class RecordingEngine final : public MarkdownWebEngine, public MarkdownWebEngineFactory
{
public:
    [[nodiscard]] std::function<void()> preloading() const override
    {
        return [] {};
    }
    [[nodiscard]] MarkdownWebEngine* engine() override { return this; }
    [[nodiscard]] std::unique_ptr<MarkdownPageView> makePage(MarkdownPageDelegate& delegate,
                                                             QWidget& parent) override
    {
        requests.delegate = &delegate;
        return std::make_unique<RecordingPage>(requests, parent);
    }

    Requests requests;
};

/// A document in a window, shown by that engine.
struct Preview
{
    Preview()
    {
        view.resize(400, 300);
        view.show();
    }

    /// Lets the view appear and the page be made.
    void makePage()
    {
        QVERIFY(QTest::qWaitFor([this] { return open.tasks.pending() > 0; }));
        open.tasks.runAll();
    }
    void finishLoading()
    {
        engine.requests.delegate->didFinishNavigation();
        QCoreApplication::processEvents();
    }
    void scrolledTo(const ReadingPlace& place)
    {
        engine.requests.delegate->didReceiveMessage(
            u"readingPosition"_s, QVariantMap{{u"line"_s, place.line},
                                              {u"offset"_s, place.offset},
                                              {u"sourceLine"_s, place.sourceLine}});
    }
    void setGround(const QColor& color)
    {
        QPalette palette = view.palette();
        palette.setColor(QPalette::Base, color);
        view.setPalette(palette);
        QCoreApplication::processEvents();
    }

    RecordingEngine engine;
    OpenDocument open;
    ReaderServices services{open.windows,
                            open.opener,
                            open.pasteboard,
                            open.selectedText,
                            open.tasks,
                            engine,
                            MarkdownResource(QStringLiteral(DRIFTBOX_TEST_RESOURCES))};
    QWidget host; // as a window of its own the view would be offered sizes
    MarkdownReaderView view{open.document, services, {}, &host};
};

} // namespace

class TestMarkdownPreview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_preview.emplace();
        m_preview->setGround(Qt::white);
        m_preview->host.show();
        m_preview->makePage();
    }
    void cleanup() { m_preview.reset(); }

    void pageHasTheDocumentsFolderAsBase()
    {
        QCOMPARE(requests().loads, QStringList(u"file:///docs/"_s));
        QCOMPARE(requests().colors, QList<QColor>{Qt::white});
    }

    void latestTextIsRenderedOnceThePageIsLoaded()
    {
        m_preview->open.document.setMarkdown(u"one"_s);
        m_preview->open.document.setMarkdown(u"two"_s);
        QCoreApplication::processEvents();
        QCOMPARE(requests().renders, QStringList());
        m_preview->finishLoading();
        QCOMPARE(requests().renders, QStringList(u"light: two"_s));
    }

    void switchingToDarkRendersAgain()
    {
        m_preview->finishLoading();
        QCOMPARE(requests().renders, QStringList(u"light: # Title\n"_s));
        m_preview->setGround(QColor(30, 30, 30));
        QCOMPARE(requests().renders.last(), u"dark: # Title\n"_s);
        QCOMPARE(requests().colors.last(), QColor(30, 30, 30));
        m_preview->setGround(QColor(250, 250, 250));
        QCOMPARE(requests().renders.last(), u"light: # Title\n"_s);
    }

    void openingTheEditorDestroysThePage()
    {
        m_preview->finishLoading();
        m_preview->open.document.toggleEdit();
        QCOMPARE(requests().pages, 0);
        m_preview->open.document.setMarkdown(u"typed"_s);
        m_preview->open.document.toggleEdit();
        m_preview->makePage();
        QCOMPARE(requests().pages, 1);
        QCOMPARE(requests().loads.size(), 2);
        QCOMPARE(requests().renders.size(), 1);
        m_preview->finishLoading();
        QCOMPARE(requests().renders.last(), u"light: typed"_s);
    }

    void editorAndPreviewShareTheReadingPlace()
    {
        m_preview->open.document.setMarkdown(u"line\n\n"_s.repeated(500));
        m_preview->finishLoading();
        m_preview->scrolledTo({.line = 400, .offset = -3, .sourceLine = 401});
        edit();
        QCOMPARE(topLine(), 401);
        QTest::keyClick(editor(), Qt::Key_X);
        QVERIFY(m_preview->open.document.markdown().startsWith(u"line\n\n"_s.repeated(200) +
                                                               u"line\nx"_s));
        QCOMPARE(topLine(), 401);
        returnToPreview();
        QCOMPARE(requests().places.back(),
                 (ReadingPlace{.line = 400, .offset = -3, .sourceLine = 401}));
    }

    void previewFollowsAScrolledEditor()
    {
        m_preview->open.document.setMarkdown(u"line\n\n"_s.repeated(500));
        m_preview->finishLoading();
        m_preview->scrolledTo({.line = 400, .offset = -3, .sourceLine = 401});
        edit();
        editor()->verticalScrollBar()->setValue(100);
        returnToPreview();
        QCOMPARE(requests().places.back(), (ReadingPlace{.line = 100, .sourceLine = 100}));
    }

    void endOfTheSourceKeepsThePlace()
    {
        m_preview->open.document.setMarkdown(u"line\n\n"_s.repeated(500));
        m_preview->finishLoading();
        m_preview->scrolledTo({.line = 998, .sourceLine = 998}); // the editor cannot scroll there
        edit();
        QVERIFY(topLine() < 998);
        returnToPreview();
        QCOMPARE(requests().places.back(), (ReadingPlace{.line = 998, .sourceLine = 998}));
    }

    void fragmentRequestedInTheEditorIsShownByTheNextPreview()
    {
        m_preview->finishLoading();
        edit();
        m_preview->view.showPlace({.fragment = u"part"_s});
        returnToPreview();
        QCOMPARE(requests().places.back().fragment, u"part"_s);
    }

private:
    [[nodiscard]] MarkdownEditor* editor() { return m_preview->view.findChild<MarkdownEditor*>(); }
    [[nodiscard]] int topLine() { return editor()->cursorForPosition(QPoint(1, 1)).blockNumber(); }
    void edit()
    {
        m_preview->open.document.toggleEdit();
        QVERIFY(QTest::qWaitFor([this] { return editor()->isVisible(); }));
    }
    void returnToPreview()
    {
        m_preview->open.document.toggleEdit();
        m_preview->makePage();
        m_preview->finishLoading();
    }
    [[nodiscard]] const Requests& requests() const { return m_preview->engine.requests; }

    std::optional<Preview> m_preview;
};

DRIFTBOX_TEST(TestMarkdownPreview, QApplication)
#include "TestMarkdownPreview.moc"
