#include "unit/markdown/page/OpenPage.h"

#include <QtCore/QFile>
#include <QtNetwork/QTcpServer>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestPageSafety : public PageTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Every outgoing request ends up here.
        QVERIFY(m_server.listen(QHostAddress::LocalHost));
        m_base = u"http://127.0.0.1:%1/"_s.arg(m_server.serverPort());
        QVERIFY(QFile(m_folder.filePath(u"notes.txt"_s)).open(QIODevice::WriteOnly));
        openPage();
    }
    void cleanupTestCase() { closeEngine(); }

    void hostileDocumentsRunNothing_data()
    {
        QTest::addColumn<QString>("text");
        const auto row = [](const char* name, const char* text) {
            QTest::newRow(name) << QString::fromUtf8(text);
        };
        row("script", "<script>window.hacked = 1</script>");
        row("script in a paragraph", "a <script>window.hacked = 1</script> b");
        row("remote script", "<script src=\"BASEa.js\"></script>");
        row("event handler", "<img src=x onerror=\"window.hacked = 1\">");
        row("event handler without quotes", "<details open ontoggle=window.hacked=1>a</details>");
        row("broken tag", "<img src=x onerror=window.hacked=1 //");
        row("SVG", "<svg onload=\"window.hacked = 1\"><script>window.hacked = 1</script></svg>");
        row("SVG animation", "<svg><animate onbegin=window.hacked=1 attributeName=x></svg>");
        row("MathML mutation", "<math><mtext><table><mglyph><style><!--</style>"
                               "<img title=\"--&gt;&lt;img src=1 onerror=window.hacked=1&gt;\">");
        row("noscript mutation",
            "<noscript><p title=\"</noscript><img src=x onerror=window.hacked=1>\">");
        row("template", "<template><img src=x onerror=window.hacked=1></template>");
        row("frame", "<iframe src=\"BASEf\" srcdoc=\"<script>parent.hacked=1</script>\"></iframe>");
        row("object", "<object data=\"BASEo\"></object><embed src=\"BASEe\">");
        row("form", "<form action=\"BASE\"><button autofocus>a</button></form>");
        row("field", "<input autofocus onfocus=window.hacked=1><input type=password>");
        row("meta refresh", "<meta http-equiv=\"refresh\" content=\"0;url=BASEm\">");
        row("base", "<base href=\"BASE\">\n\n![a](b.png)");
        row("style", "<style>@import 'BASEs.css'; body { background: url(BASEb) }</style>");
        row("style attribute", "<p style=\"background: url(BASEp); position: fixed\">a</p>");
        row("style sheet", "<link rel=stylesheet href=\"BASEl.css\"><link rel=preload as=image "
                           "href=\"BASEl.png\"><link rel=dns-prefetch href=\"BASE\">");
        row("remote picture", "![a](BASEi.png) <img src=\"BASEi.png\" srcset=\"BASEs.png 2x\">");
        row("picture without a scheme", "<img src=\"//127.0.0.1/a.png\">");
        row("picture element",
            "<picture><source srcset=\"BASEp.png\"><img src=\"BASEq.png\"></picture>");
        row("old background", "<table background=\"BASEt.png\"><tr><td background=\"BASEu.png\">");
        row("video",
            "<video src=\"BASEv\" poster=\"BASEw\" autoplay></video><audio src=\"BASEx\">");
        row("SVG picture", "<svg><image href=\"BASEy.png\"/><use href=\"BASEz.svg#a\"/></svg>");
        row("script in a picture's data",
            "![a](data:image/svg+xml,%3Csvg xmlns='http://www.w3.org/2000/svg' "
            "onload='parent.hacked=1'%3E%3C/svg%3E)");
        row("diagram with markup", "```mermaid\nflowchart LR\n"
                                   "A[\"<img src=BASEd.png onerror=window.hacked=1>\"]\n```");
        row("diagram that wants to be loose",
            "```mermaid\n%%{init: {\"securityLevel\": \"loose\", \"themeCSS\": "
            "\"* { background: url(BASEc) }\"}}%%\nflowchart LR\nA\nclick A call alert(1)\n```");
        row("diagram with a picture",
            "```mermaid\nflowchart LR\nA@{ img: \"BASEg.png\", label: \"a\" }\n```");
        row("code with markup", "```html\n<img src=BASEh.png onerror=window.hacked=1>\n```");
        row("language with markup", "```x\"><img/src=x/onerror=window.hacked=1>\na\n```");
        row("title with markup", "[a](b \"<img src=x onerror=window.hacked=1>\")");
        row("front matter with markup",
            "---\na: <img src=BASEk.png onerror=window.hacked=1>\n---\n");
        row("alert with markup", "> [!NOTE]\n> <img src=x onerror=window.hacked=1>");
        row("footnote with markup", "a[^1]\n\n[^1]: <img src=x onerror=window.hacked=1>");
        row("names of the page's own", "<a id=document></a><img name=messageHandlers>"
                                       "<form name=renderMarkdown></form><p id=diagram-library>");
        row("names of the browser's own", "<img name=getElementById><form id=body><input "
                                          "name=parentNode>");
        row("overlay", "<dialog open>a</dialog><div popover>b</div>");
    }

    void hostileDocumentsRunNothing()
    {
        QFETCH(QString, text);
        text.replace(u"BASE"_s, m_base);
        QVERIFY(m_open->render(text));
        // Anything late has happened once the next text is rendered.
        QVERIFY(m_open->becomesTrue(u"!document.querySelector('.pending')"_s));
        QCOMPARE(offences(), QString());
        QVERIFY(m_open->render(u"still *here*"_s));
        QCOMPARE(m_open->html(), u"<p>still <em>here</em></p>"_s);
        QCOMPARE(m_open->value(u"window.hacked === undefined"_s), QVariant(true));
        QVERIFY(!m_server.hasPendingConnections());
        QCOMPARE(m_open->delegate().messages, QStringList());
    }

    void textThatImitatesThePageIsNotRun()
    {
        openPage(); // without the diagram library, which is loaded on first use
        QVERIFY(m_open->render(u"<pre id=\"diagram-library\">window.hacked = 1</pre>\n\n"
                               "```mermaid\nflowchart LR\nA --> B\n```"_s));
        QCOMPARE(m_open->value(u"window.hacked === undefined"_s), QVariant(true));
        QVERIFY(m_open->value(u"document.querySelector('.diagram svg') !== null"_s).toBool());
    }

    void injectedScriptIsBlocked()
    {
        QVERIFY(m_open->render(u"a"_s));
        (void)m_open->value(u"document.getElementById('document').innerHTML = "
                            "'<img src=x onerror=\"window.hacked = 1\">'; 0"_s);
        (void)m_open->value(u"{ const s = document.createElement('script'); "
                            "s.textContent = 'window.hacked = 1'; document.body.append(s); } 0"_s);
        (void)m_open->value(u"try { eval('window.hacked = 1') } catch {} 0"_s);
        QCOMPARE(m_open->value(u"window.hacked === undefined"_s), QVariant(true));
    }

    void scriptsCannotReachTheNetwork()
    {
        const QString attempts =
            u"window.tried = 0; fetch('%1f').catch(() => window.tried++);"
            "{ const i = new Image(); i.onerror = () => window.tried++; i.src = '%1i.png'; }"
            "{ const x = new XMLHttpRequest(); x.onerror = () => window.tried++;"
            "  x.open('GET', '%1x'); x.send(); }"
            "try { navigator.sendBeacon('%1b') } catch {}"
            "try { new WebSocket('%2w').onerror = () => window.tried++ } catch { window.tried++ }"
            "try { new EventSource('%1e').onerror = () => window.tried++ } catch { window.tried++ }"
            "0"_s.arg(m_base, QString(m_base).replace(u"http"_s, u"ws"_s));
        (void)m_open->value(attempts);
        QVERIFY(m_open->becomesTrue(u"window.tried >= 5"_s));
        QVERIFY(!m_server.hasPendingConnections());
    }

    void filesOtherThanPicturesCannotBeRead()
    {
        (void)m_open->value(u"window.answer = null; fetch('notes.txt').then(r => r.text())"
                            ".then(t => { window.answer = 'read' }, () => { window.answer = 'no' })"
                            "; 0"_s);
        QVERIFY(m_open->becomesTrue(u"window.answer !== null"_s));
        QCOMPARE(m_open->value(u"window.answer"_s).toString(), u"no"_s);
    }

    void navigationIsBlocked_data()
    {
        QTest::addColumn<QString>("attempt");
        QTest::newRow("the web") << u"location = '%1l'"_s.arg(m_base);
        QTest::newRow("a window") << u"window.open('%1o')"_s.arg(m_base);
        QTest::newRow("a file") << u"location = 'file:///etc/passwd'"_s;
        QTest::newRow("nowhere") << u"location = 'about:blank'"_s;
        QTest::newRow("data") << u"location = 'data:text/html,a'"_s;
        QTest::newRow("a picture") << u"location.search = '/a.png'"_s;
    }

    void navigationIsBlocked()
    {
        QFETCH(QString, attempt);
        openPage();
        const QUrl address = m_open->engine().url();
        (void)m_open->value(attempt + u"; 0"_s);
        QVERIFY(waitFor([&] { return m_open->engine().url() == address; }));
        QVERIFY(m_open->becomesTrue(u"typeof renderMarkdown === 'function'"_s));
        QVERIFY(m_open->render(u"still here"_s));
        QCOMPARE(m_open->html(), u"<p>still here</p>"_s);
        QVERIFY(!m_server.hasPendingConnections());
    }

    void nothingIsStoredOnDisk()
    {
        QVERIFY(m_open->engine().profile()->isOffTheRecord());
        QVERIFY(m_open->value(u"try { localStorage.a = 1; false } catch { true }"_s).toBool() ||
                m_open->value(u"!window.localStorage"_s).toBool());
    }

private:
    // What a rendered document must never contain.
    [[nodiscard]] QString offences()
    {
        return m_open
            ->value(u"[...document.querySelectorAll('#document *')].flatMap(e => ["
                    "  ...(e.matches('script, iframe, object, embed, form, button, base, meta, "
                    "link, video, audio, dialog, input:not([type=checkbox])') ? [e.nodeName] : []),"
                    "  ...(e.matches('style') && !e.closest('svg') ? ['STYLE'] : []),"
                    "  ...[...e.attributes].filter(a => /^on/i.test(a.name) "
                    "    || /^\\s*javascript:/i.test(a.value) "
                    "    || (a.name === 'style' && !e.closest('svg'))"
                    "    || (/^(src|srcset|background|poster)$/.test(a.name) "
                    "        && /^(https?:)?\\/\\//.test(a.value))"
                    "    || (e.matches('image, use') && /(^|:)href$/.test(a.name) "
                    "        && /^(https?:)?\\/\\//.test(a.value)))"
                    "    .map(a => a.name + '=' + a.value)]).join(' ')"_s)
            .toString();
    }

    QTcpServer m_server;
    QString m_base;
};

DRIFTBOX_PAGE_TEST(TestPageSafety)
#include "TestPageSafety.moc"
