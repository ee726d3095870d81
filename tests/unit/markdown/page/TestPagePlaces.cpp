#include "unit/markdown/page/OpenPage.h"

using namespace driftbox;
using namespace Qt::StringLiterals;

/// Where in a document the page is: anchors, and the reading position.
class TestPagePlaces : public PageTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { openPage(); }
    void cleanupTestCase() { closeEngine(); }

    void anchorsScroll()
    {
        QVERIFY(m_open->render(u"[a](#%C3%BCber-uns)\n\n"_s + filler() + u"# Über uns\n\n"_s +
                               filler()));
        (void)m_open->value(u"document.querySelector('#document a').click(); 0"_s);
        QVERIFY(m_open->becomesTrue(
            u"Math.abs(document.querySelector('h1').getBoundingClientRect().top) < 40"_s));
        QCOMPARE(m_open->delegate().messages, QStringList());
    }

    void anchorsMayHaveAnyName_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"Title", "Links", "Images", "Location", "Document", "Process",
                                 "Diagram-1", "Diagram-library", "messageHandlers"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void anchorsMayHaveAnyName()
    {
        QFETCH(QString, name);
        QVERIFY(m_open->render(u"[a](#%1)\n\n```mermaid\nflowchart LR\nA --> B\n```\n\n%2"
                               "# %3\n\n%2"_s.arg(name.toLower(), filler(), name)));
        QVERIFY(m_open->value(u"document.querySelector('.diagram svg') !== null"_s).toBool());
        (void)m_open->value(u"document.querySelector('#document a').click(); 0"_s);
        QVERIFY(m_open->becomesTrue(
            u"Math.abs(document.querySelector('h1').getBoundingClientRect().top) < 40"_s));
    }

    void newTextKeepsTheReadingPosition()
    {
        QVERIFY(m_open->render(filler() + u"marked paragraph\n\n"_s + filler()));
        (void)m_open->value(marked() + u".scrollIntoView(); 0"_s);
        const int before = m_open->value(marked() + u".getBoundingClientRect().top"_s).toInt();
        QVERIFY(m_open->render(filler() + u"marked paragraph\n\nanother one\n\n"_s + filler()));
        const int after = m_open->value(marked() + u".getBoundingClientRect().top"_s).toInt();
        QVERIFY2(std::abs(before - after) <= 2, qPrintable(u"%1, %2"_s.arg(before).arg(after)));
    }

    void firstScreenOfALongTextIsShownBeforeTheRest()
    {
        m_open->page().renderMarkdown(u"# First\n\n"_s + filler().repeated(2000), u"light"_s);
        QVERIFY(waitFor([this] { return m_open->delegate().screens == 1; }));
        QCOMPARE(m_open->delegate().renderings, 0);
        QCOMPARE(m_open->value(u"document.querySelector('h1').textContent"_s).toString(),
                 u"First"_s);
        QVERIFY(waitFor([this] { return m_open->delegate().renderings == 1; }));
        QCOMPARE(m_open->value(u"document.querySelectorAll('#document p').length"_s).toInt(),
                 2000 * 60);
    }

    void longTextReopensAtTheReadingPosition()
    {
        const QString endless = filler().repeated(200);
        QVERIFY(m_open->render(endless + u"marked paragraph\n\n"_s + endless));
        (void)m_open->value(marked() + u".scrollIntoView(); 0"_s);
        QVERIFY(m_open->becomesTrue(topOfMarked() + u" < 40"_s));
        (void)m_open->value(u"window.scrollBy(0, -100); window.lowest = scrollY; addEventListener("
                            "'scroll', () => { lowest = Math.min(lowest, scrollY) }); 0"_s);
        const int before = m_open->value(topOfMarked()).toInt();
        QVERIFY(m_open->render(endless + u"marked paragraph\n\nanother one\n\n"_s + endless));
        const int after = m_open->value(topOfMarked()).toInt();
        QVERIFY2(std::abs(before - after) <= 2, qPrintable(u"%1, %2"_s.arg(before).arg(after)));
        QVERIFY(m_open->value(u"lowest > 10000"_s).toBool()); // the beginning was never shown
    }

    void fragmentIsShownOnceItIsRendered_data()
    {
        QTest::addColumn<int>("before"); // paragraphs, in sixties
        QTest::addColumn<int>("after");
        QTest::newRow("short") << 2 << 1;
        QTest::newRow("long") << 100 << 100;
        QTest::newRow("near the end of the first run") << 6 << 100;
    }

    void fragmentIsShownOnceItIsRendered()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        m_open->page().showPlace({.fragment = u"%C3%BCber-uns"_s});
        const QString text = filler().repeated(before) + u"# Über uns\n\n"_s;
        QVERIFY(m_open->render(text + filler().repeated(after)));
        QVERIFY(m_open->becomesTrue(
            u"Math.abs(document.querySelector('h1').getBoundingClientRect().top) < 40"_s));
        // Once more, without rendering.
        (void)m_open->value(u"window.scrollTo(0, 0); 0"_s);
        m_open->page().showPlace({.fragment = u"%C3%BCber-uns"_s});
        QVERIFY(m_open->becomesTrue(
            u"Math.abs(document.querySelector('h1').getBoundingClientRect().top) < 40"_s));
    }

    void newPageRestoresThePositionOfTheOldOne()
    {
        const QString text = u"Some text.\nAnd more.\n\n"_s.repeated(8000) + filler();
        QVERIFY(m_open->render(text));
        (void)m_open->value(u"showPlace({line: 12000, offset: -7}); 0"_s);
        QVERIFY(waitFor([&] { return m_open->delegate().position.value(u"line"_s) == 12000; }));
        const QVariantMap told = m_open->delegate().position;
        QCOMPARE(qRound(told.value(u"offset"_s).toDouble()), -7);
        QCOMPARE(told.value(u"sourceLine"_s).toInt(), 12000);
        openPage();
        m_open->page().showPlace({.line = 12000, .offset = -7});
        QVERIFY(m_open->render(text));
        QVERIFY(waitFor([&] { return m_open->delegate().position.value(u"line"_s) == 12000; }));
        QCOMPARE(qRound(m_open->delegate().position.value(u"offset"_s).toDouble()), -7);
    }

    void positionWithinALongBlockIsReportedByLine()
    {
        QVERIFY(
            m_open->render(u"a\n\n```\n"_s + u"code\n"_s.repeated(200) + u"```\n\n"_s + filler()));
        (void)m_open->value(u"{ const r = document.querySelector('pre').getBoundingClientRect(); "
                            "window.scrollTo(0, r.top + r.height / 2) } 0"_s);
        QVERIFY(waitFor([&] { return m_open->delegate().position.value(u"line"_s) == 2; }));
        const int line = m_open->delegate().position.value(u"sourceLine"_s).toInt();
        QVERIFY2(line > 95 && line < 115, qPrintable(QString::number(line)));
    }

private:
    [[nodiscard]] static QString marked()
    {
        return u"[...document.querySelectorAll('p')].find(p => p.textContent === "
               "'marked paragraph')"_s;
    }

    [[nodiscard]] static QString topOfMarked()
    {
        return marked() + u".getBoundingClientRect().top"_s;
    }

    [[nodiscard]] static QString filler()
    {
        return u"Some text that fills the page.\n\n"_s.repeated(60);
    }
};

DRIFTBOX_PAGE_TEST(TestPagePlaces)
#include "TestPagePlaces.moc"
