#include "unit/markdown/page/OpenPage.h"

#include <csignal>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImage>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestPageBehavior : public PageTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QDir(m_folder.path()).mkdir(u"img"_s));
        QImage picture(12, 8, QImage::Format_RGB32);
        picture.fill(Qt::red);
        QVERIFY(picture.save(m_folder.filePath(u"img/a b#ü.png"_s)));
    }

    void init() { openPage(); }
    void cleanupTestCase() { closeEngine(); }

    void themeIsAClassOfTheDocumentElement()
    {
        QVERIFY(m_open->render(u"a"_s, u"dark"_s));
        QCOMPARE(m_open->value(u"document.documentElement.className"_s).toString(), u"dark"_s);
        const QString dark = background();
        QVERIFY(m_open->render(u"a"_s, u"light"_s));
        QCOMPARE(m_open->value(u"document.documentElement.className"_s).toString(), u"light"_s);
        QVERIFY(background() != dark);
    }

    void everyDarkColorHasAPrintColor()
    {
        (void)m_open->value(
            u"window.rules = [...document.styleSheets[0].cssRules]; window.names = (rules) => "
            "rules.filter(r => r.selectorText?.includes(':root.dark') && !/ /.test("
            "r.selectorText.replace(', ', ','))).flatMap(r => [...r.style]); window.paper = names("
            "[...rules.find(r => r.media?.mediaText === 'print').cssRules]); 0"_s);
        QVERIFY(m_open->value(u"names(rules).length > 10"_s).toBool());
        QCOMPARE(m_open->value(u"names(rules).filter(n => !paper.includes(n)).join()"_s).toString(),
                 u"--selection"_s); // which is never printed
    }

    void relativePicturesResolveAgainstTheDocument()
    {
        QVERIFY(m_open->render(u"![x](<img/a b#ü.png>)\n\n![x](img/a%20b%23%C3%BC.png)"_s));
        // A # ends an address, so only the second one is right.
        QVERIFY(m_open->becomesTrue(u"document.querySelector('.missing-picture') !== null && "
                                    "document.images.length === 1 && "
                                    "document.images[0].naturalWidth === 12"_s));
    }

    void missingPictureShowsItsDescription()
    {
        QVERIFY(m_open->render(u"![what it was](img/none.png)"_s));
        QVERIFY(m_open->becomesTrue(u"document.querySelector('.missing-picture')?.textContent === "
                                    "'what it was'"_s));
    }

    void clickedLinksAreReportedToTheProgram_data()
    {
        QTest::addColumn<QString>("link");
        QTest::addColumn<QStringList>("messages"); // %1 is the folder
        const auto opened = [](const QString& url) {
            return QStringList{u"openExternal: "_s + url};
        };
        QTest::newRow("web") << u"[a](https://b.org/c?d=e#f)"_s
                             << opened(u"https://b.org/c?d=e#f"_s);
        QTest::newRow("mail") << u"<a@b.org>"_s << opened(u"mailto:a@b.org"_s);
        QTest::newRow("relative file")
            << u"[a](sub/../b%20c.md#part)"_s << opened(u"file://%1/b%20c.md#part"_s);
        QTest::newRow("absolute path") << u"[a](/x/y.md)"_s << opened(u"file:///x/y.md"_s);
        QTest::newRow("raw HTML") << u"<a href=\"b.md\" target=_blank>a</a>"_s
                                  << opened(u"file://%1/b.md"_s);
        QTest::newRow("anchor") << u"[a](#part)\n\n# Part"_s << QStringList();
        QTest::newRow("script") << u"[a](javascript:window.hacked=1)"_s << QStringList();
        QTest::newRow("script in raw HTML")
            << u"<a href=\"java&#10;script:window.hacked=1\">a</a>"_s << QStringList();
        QTest::newRow("unknown scheme") << u"<a href=\"steam://run/1\">a</a>"_s << QStringList();
        QTest::newRow("data") << u"<a href=\"data:text/html,a\">a</a>"_s << QStringList();
        QTest::newRow("without an address") << u"<a name=b>a</a>"_s << QStringList();
    }

    void clickedLinksAreReportedToTheProgram()
    {
        QFETCH(QString, link);
        QFETCH(QStringList, messages);
        messages.replaceInStrings(u"%1"_s, m_folder.path());
        const QUrl address = m_open->engine().url();
        QVERIFY(m_open->render(link));
        (void)m_open->value(u"document.querySelector('#document a')?.click(); 0"_s);
        // Messages keep their order, so this one is the last.
        (void)m_open->value(u"messageHandlers.openExternal.postMessage('end'); 0"_s);
        QVERIFY(waitFor(
            [this] { return m_open->delegate().messages.contains(u"openExternal: end"_s); }));
        QCOMPARE(m_open->delegate().messages.size(), messages.size() + 1);
        QCOMPARE(m_open->delegate().messages.first(messages.size()), messages);
        QCOMPARE(m_open->engine().url(), address);
        QCOMPARE(m_open->value(u"window.hacked === undefined"_s), QVariant(true));
    }

    void middleClickOpensNoWindow()
    {
        QVERIFY(m_open->render(u"[a](https://b.org)"_s));
        (void)m_open->value(u"document.querySelector('#document a').dispatchEvent(new MouseEvent("
                            "'auxclick', {button: 1, bubbles: true, cancelable: true})); 0"_s);
        QVERIFY(waitFor([this] { return !m_open->delegate().messages.isEmpty(); }));
        QCOMPARE(m_open->delegate().messages.join(u'|'), u"openExternal: https://b.org/"_s);
    }

    void changingTheThemeKeepsTheText()
    {
        QVERIFY(m_open->render(filler(), u"light"_s));
        (void)m_open->value(u"document.querySelector('#document p').seen = true; "
                            "window.scrollTo(0, 1000); 0"_s);
        QVERIFY(m_open->render(filler(), u"dark"_s));
        QVERIFY(m_open->value(u"document.querySelector('#document p').seen"_s).toBool());
        QCOMPARE(m_open->value(u"window.scrollY"_s).toInt(), 1000);
    }

    void diagramsUseTheColorsOfTheTheme()
    {
        const QString text = u"```mermaid\nflowchart LR\nA[one] --> B[two]\n```"_s;
        QVERIFY(m_open->render(text, u"light"_s));
        QVERIFY(m_open->value(u"document.querySelector('.diagram svg') !== null"_s).toBool());
        QVERIFY(m_open->value(u"/one/.test(document.querySelector('.diagram').textContent)"_s)
                    .toBool());
        QVERIFY(m_open->value(u"!document.querySelector('.pending')"_s).toBool());
        const QString light = nodeColor();
        QVERIFY(m_open->render(text, u"dark"_s));
        QVERIFY(nodeColor() != light);
        QVERIFY(m_open->render(text, u"light"_s));
        QCOMPARE(nodeColor(), light);
    }

    void diagramStaysUntilItsReplacementIsDrawn()
    {
        const QString text = u"```mermaid\nflowchart LR\nA --> B\n```"_s;
        QVERIFY(m_open->render(text, u"light"_s));
        (void)m_open->value(
            u"window.blank = 0; new MutationObserver(() => { window.blank += "
            "document.querySelectorAll('.diagram svg').length === 0 }).observe("
            "document.querySelector('.diagram'), {childList: true, subtree: true}); 0"_s);
        QVERIFY(m_open->render(text, u"dark"_s));
        QCOMPARE(m_open->value(u"window.blank"_s).toInt(), 0);
    }

    void invalidDiagramShowsItsSourceAndTheError()
    {
        QVERIFY(m_open->render(u"```mermaid\nflowchart LR\nA[[[ --> <b>\n```\n\n"
                               "```mermaid\nflowchart LR\nA --> B\n```\n\nand *on*"_s));
        QVERIFY(m_open
                    ->value(u"document.querySelector('.failed pre').textContent.includes("
                            "'A[[[ --> <b>')"_s)
                    .toBool());
        QVERIFY(m_open
                    ->value(u"document.querySelector('.failed figcaption').textContent.length "
                            "> 10"_s)
                    .toBool());
        QCOMPARE(m_open->value(u"document.querySelectorAll('.diagram svg').length"_s).toInt(), 1);
        QCOMPARE(m_open->value(u"document.querySelector('em').textContent"_s).toString(), u"on"_s);
        // The failed attempt leaves nothing behind.
        QCOMPARE(m_open->value(u"[...document.body.children].map(e => e.nodeName).join()"_s)
                     .toString()
                     .remove(u",SCRIPT"_s),
                 u"MAIN"_s);
    }

    void diagramLibraryIsLoadedOnlyWhenNeeded()
    {
        QVERIFY(m_open->render(u"a"_s));
        QVERIFY(m_open->value(u"typeof mermaid === 'undefined'"_s).toBool());
    }

    void wideTablesAndCodeScrollInTheirOwnBox()
    {
        const QString wide = u"| "_s + u"wide column | "_s.repeated(60) + u"\n|"_s +
                             u"---|"_s.repeated(60) + u"\n\n```\n"_s + QString(2000, u'x') +
                             u"\n```\n\n"_s + QString(2000, u'y');
        QVERIFY(m_open->render(wide));
        QVERIFY(m_open->value(u"document.documentElement.scrollWidth <= innerWidth"_s).toBool());
        QVERIFY(m_open
                    ->value(u"['.table-box', 'pre'].every(s => { const e = "
                            "document.querySelector(s); return e.scrollWidth > e.clientWidth })"_s)
                    .toBool());
    }

    void lastOfManyTextsIsShown()
    {
        m_open->page().renderMarkdown(filler().repeated(200), u"light"_s);
        QVERIFY(m_open->render(u"last"_s));
        QCOMPARE(m_open->html(), u"<p>last</p>"_s);
        QCOMPARE(m_open->delegate().renderings, 1);
    }

    void crashedProcessIsRestarted()
    {
        QVERIFY(m_open->render(u"a"_s));
        for (int crash = 1; crash <= 3; ++crash) {
            QTest::ignoreMessage(QtWarningMsg,
                                 "The web process crashed; the document is loaded again");
            kill(static_cast<pid_t>(m_open->engine().renderProcessPid()), SIGKILL);
            QVERIFY(waitFor([&] { return m_open->delegate().navigations == crash + 1; }));
            QVERIFY(m_open->render(u"again"_s));
            QCOMPARE(m_open->html(), u"<p>again</p>"_s);
        }
        QTest::ignoreMessage(QtCriticalMsg, "The web process crashes again and again; given up");
        kill(static_cast<pid_t>(m_open->engine().renderProcessPid()), SIGKILL);
        QVERIFY(waitFor([this] { return m_open->engine().renderProcessPid() == 0; }));
        QCOMPARE(m_open->delegate().navigations, 4);
    }

    void closedPageLeavesNoProcess()
    {
        QVERIFY(m_open->render(u"a"_s));
        const auto process = static_cast<pid_t>(m_open->engine().renderProcessPid());
        QVERIFY(process > 0);
        QCOMPARE(kill(process, 0), 0);
        m_open.reset();
        QVERIFY(waitFor([&] { return !isRunning(process); }));
    }

private:
    [[nodiscard]] QString background()
    {
        return m_open->value(u"getComputedStyle(document.documentElement).backgroundColor"_s)
            .toString();
    }

    [[nodiscard]] QString nodeColor()
    {
        return m_open
            ->value(u"getComputedStyle(document.querySelector('.diagram .node rect')).fill"_s)
            .toString();
    }

    [[nodiscard]] static QString filler()
    {
        return u"Some text that fills the page.\n\n"_s.repeated(60);
    }

    // A zombie process does not count as running.
    [[nodiscard]] static bool isRunning(pid_t process)
    {
        QFile status(u"/proc/%1/stat"_s.arg(process));
        return status.open(QIODevice::ReadOnly) && !status.readAll().contains(") Z ");
    }
};

DRIFTBOX_PAGE_TEST(TestPageBehavior)
#include "TestPageBehavior.moc"
