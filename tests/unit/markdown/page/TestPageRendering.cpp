#include "unit/markdown/page/OpenPage.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestPageRendering : public PageTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { openPage(); }
    void cleanupTestCase() { closeEngine(); }

    void rendersMarkdown_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");

        row("paragraphs", "one\ntwo\n\nthree", "<p>one\ntwo</p>\n<p>three</p>");
        row("hard break", "one  \ntwo\\\nthree", "<p>one<br>\ntwo<br>\nthree</p>");
        row("emphasis", "*a* _b_ **c** __d__ ***e***",
            "<p><em>a</em> <em>b</em> <strong>c</strong> <strong>d</strong> "
            "<em><strong>e</strong></em></p>");
        row("no emphasis within words", "a_b_c a*b*c", "<p>a_b_c a<em>b</em>c</p>");
        row("code span", "`` a`b `` `<b>`", "<p><code>a`b</code> <code>&lt;b&gt;</code></p>");
        row("escapes", "\\*a\\* \\# &copy; &#35;", "<p>*a* # © #</p>");
        row("rule", "a\n\n---\n\nb", "<p>a</p>\n<hr>\n<p>b</p>");
        row("headings", "# a\n## b ##\n\nc\n---",
            "<h1 id=\"user-content-a\">a</h1>\n<h2 id=\"user-content-b\">b</h2>\n"
            "<h2 id=\"user-content-c\">c</h2>");
        row("no heading", "#a\n\n####### b", "<p>#a</p>\n<p>####### b</p>");
        row("quotation", "> a\nb\n> > c",
            "<blockquote>\n<p>a\nb</p>\n<blockquote>\n<p>c</p>\n"
            "</blockquote>\n</blockquote>");
        row("tight list", "- a\n- b\n  - c",
            "<ul>\n<li>a</li>\n<li>b\n<ul>\n<li>c</li>\n</ul>\n</li>\n</ul>");
        row("loose list", "- a\n\n- b",
            "<ul>\n<li>\n<p>a</p>\n</li>\n<li>\n<p>b</p>\n</li>\n</ul>");
        row("numbered list", "3. a\n4. b", "<ol start=\"3\">\n<li>a</li>\n<li>b</li>\n</ol>");
        row("indented code", "    a <b>\n\n    c", "<pre><code>a &lt;b&gt;\n\nc\n</code></pre>");
        row("fence in a fence", "````\n```\na\n```\n````", "<pre><code>```\na\n```\n</code></pre>");
        row("open fence", "```\na\n", "<pre><code>a\n</code></pre>");
        row("inline link", "[a](https://b.org/c \"d\")",
            "<p><a href=\"https://b.org/c\" title=\"d\">a</a></p>");
        row("reference link", "[a][B] [b]\n\n[b]: <c d.md>",
            "<p><a href=\"c%20d.md\">a</a> <a href=\"c%20d.md\">b</a></p>");
        row("address", "<https://a.org> <a@b.org>",
            "<p><a href=\"https://a.org\">https://a.org</a> "
            "<a href=\"mailto:a@b.org\">a@b.org</a></p>");
        row("bare address", "see https://a.org/b?c=d.",
            "<p>see <a href=\"https://a.org/b?c=d\">https://a.org/b?c=d</a>.</p>");
        row("a file's name is no address", "see readme.md and a@b.org",
            "<p>see readme.md and a@b.org</p>");
        row("raw HTML", "a <kbd>b</kbd> <sub>c</sub>\n\n<div align=\"center\">\n\n*d*\n\n</div>",
            "<p>a <kbd>b</kbd> <sub>c</sub></p>\n<div "
            "align=\"center\">\n<p><em>d</em></p>\n</div>");
        row("comment", "a <!-- b --> c\n\n<!-- d -->", "<p>a  c</p>");
        row("details", "<details><summary>a</summary>\n\nb\n\n</details>",
            "<details><summary>a</summary>\n<p>b</p>\n</details>");

        row("strike-through", "~~a~~", "<p><s>a</s></p>");
        row("table", "| a | b | c |\n|---|:-:|--:|\n| 1 | `\\|` | 3 |\n| 4 |",
            "<div class=\"table-box\"><table>\n<thead>\n<tr>\n<th>a</th>\n"
            "<th align=\"center\">b</th>\n<th align=\"right\">c</th>\n</tr>\n</thead>\n<tbody>\n"
            "<tr>\n<td>1</td>\n<td align=\"center\"><code>|</code></td>\n"
            "<td align=\"right\">3</td>\n</tr>\n<tr>\n<td>4</td>\n<td align=\"center\"></td>\n"
            "<td align=\"right\"></td>\n</tr>\n</tbody>\n</table></div>");
        row("tasks", "- [ ] a\n- [x] b",
            "<ul class=\"contains-task-list\">\n<li class=\"task-list-item\">"
            "<input class=\"task-list-item-checkbox\" disabled=\"\" type=\"checkbox\"> a</li>\n"
            "<li class=\"task-list-item\"><input class=\"task-list-item-checkbox\" checked=\"\" "
            "disabled=\"\" "
            "type=\"checkbox\"> b</li>\n</ul>");
        row("alert", "> [!TIP]\n> a *b*\n>\n> c",
            "<blockquote class=\"alert tip\">\n<p class=\"alert-title\">Tip</p>"
            "<p class=\"alert-text\">a <em>b</em></p>\n<p>c</p>\n</blockquote>");
        row("no alert", "> [!OTHER]\n> a", "<blockquote>\n<p>[!OTHER]\na</p>\n</blockquote>");
        row("closing script tag in code", "```\n</script><b>\n```\n`</script>`",
            "<pre><code>&lt;/script&gt;&lt;b&gt;\n</code></pre>\n"
            "<p><code>&lt;/script&gt;</code></p>");
        row("remote picture", "![a *b*](https://c.org/d.png)",
            "<p><a href=\"https://c.org/d.png\" class=\"no-picture remote-picture\" "
            "title=\"https://c.org/d.png\">a b</a></p>");
        row("remote picture in a link", "[![a](https://c.org/d.png)](https://e.org)",
            "<p><a href=\"https://e.org\"><span class=\"no-picture remote-picture\" "
            "title=\"https://c.org/d.png\">a</span></a></p>");
        row("Windows line ends", "a\r\nb\r\n\r\nc", "<p>a\nb</p>\n<p>c</p>");
        row("byte order mark", "\uFEFF# a", "<h1 id=\"user-content-a\">a</h1>");
        row("empty", "", "");
        row("only space", " \n\t\n", "");
        row("other scripts", "# Größe 日本語 العربية",
            u"<h1 id=\"user-content-größe-日本語-العربية\">"
            "Größe 日本語 العربية</h1>"_s);
    }

    void rendersMarkdown()
    {
        QFETCH(QString, text);
        QVERIFY(m_open->render(u"(before)"_s)); // so that the same text is rendered, too
        QVERIFY(m_open->render(text));
        QTEST(m_open->html(), "expected");
    }

    void anchorsAreNamedAsOnCodeForges()
    {
        QVERIFY(m_open->render(u"# Hello, World!\n# Hello World\n# hello world\n"
                               "## `code` & *stress*\n# a_b-c  d\n# 1. Näxt?\n# 🙂\n#\n"_s));
        QCOMPARE(
            m_open
                ->value(
                    u"[...document.querySelectorAll('h1, h2')].map(h => h.id.replace(/^user-content-/, '')).join()"_s)
                .toString(),
            u"hello-world,hello-world-1,hello-world-2,code--stress,a_b-c--d,1-näxt,,-1"_s);
    }

    void footnotesLinkThereAndBack()
    {
        QVERIFY(m_open->render(u"a[^x] b[^x]\n\n[^x]: note\n"_s));
        QCOMPARE(m_open->value(u"document.querySelectorAll('.footnote-ref a').length"_s).toInt(),
                 2);
        for (const char* link : {"'.footnote-ref a'", "'.footnote-backref'"})
            QVERIFY(m_open
                        ->value(u"fragmentTarget(document.querySelector(%1)"
                                ".getAttribute('href').slice(1)) !== null"_s.arg(
                                    QString::fromLatin1(link)))
                        .toBool());
        QCOMPARE(m_open->value(u"fragmentTarget('fn1').textContent.trim()"_s).toString().left(4),
                 u"note"_s);
    }

    void frontMatterIsShownSubdued()
    {
        QVERIFY(m_open->render(u"---\ntitle: \"A: b\"\ntags:\n  - x\n  - y\n---\n# Text\n"_s));
        QCOMPARE(m_open->html(), u"<aside class=\"front-matter\"><dl><dt>title</dt><dd>A: b</dd>"
                                 "<dt>tags</dt><dd>x, y</dd></dl></aside>"
                                 "<h1 id=\"user-content-text\">Text</h1>"_s);
        QVERIFY(m_open->render(u"---\na:\n  b: <b>c</b>\n---\ntext"_s));
        QCOMPARE(m_open->html(), u"<aside class=\"front-matter\"><pre>a:\n  b: &lt;b&gt;c&lt;/b&gt;"
                                 "</pre></aside><p>text</p>"_s);
        QVERIFY(m_open->render(u"---\n\ntext\n\n---\n"_s)); // a rule, no data
        QCOMPARE(m_open->html(), u"<hr>\n<p>text</p>\n<hr>"_s);
    }

    void fencedCodeIsHighlighted_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("code");
        QTest::newRow("C++") << u"cpp"_s << u"int a = 1; // b"_s;
        QTest::newRow("alias in capitals") << u"PY"_s << u"def f(): return 'x'"_s;
        QTest::newRow("from the further ones") << u"cmake"_s << u"set(a 1)\nproject(b) # c"_s;
    }

    void fencedCodeIsHighlighted()
    {
        QFETCH(QString, language);
        QFETCH(QString, code);
        QVERIFY(m_open->render(u"```%1\n%2\n```"_s.arg(language, code)));
        QVERIFY(m_open->becomesTrue(u"document.querySelector('pre [class^=hljs]') !== null"_s));
        QCOMPARE(m_open->value(u"document.querySelector('pre').textContent"_s).toString(),
                 code + u'\n');
    }

    void unknownLanguagesAreNotHighlighted()
    {
        QVERIFY(m_open->render(u"```nosuch\n<a>\n```"_s));
        QCOMPARE(m_open->value(u"document.querySelector('pre code').innerHTML"_s).toString(),
                 u"&lt;a&gt;\n"_s);
    }

    void longDocumentsAreCompleteAndInOrder()
    {
        QString text;
        for (int i = 0; i < 20'000; ++i)
            text += u"Paragraph %1 with a [link][r].\n\n"_s.arg(i);
        text += u"<details>\n\nlast\n\n</details>\n\n[r]: https://a.org\n"_s;
        QVERIFY(m_open->render(text));
        QCOMPARE(m_open->value(u"document.querySelectorAll('.piece > p > a').length"_s).toInt(),
                 20'000);
        QVERIFY(m_open
                    ->value(u"[...document.querySelectorAll('.piece > p')].every((p, i) => "
                            "p.textContent.startsWith(`Paragraph ${i} `))"_s)
                    .toBool());
        QCOMPARE(
            m_open->value(u"document.querySelector('details').textContent.trim()"_s).toString(),
            u"last"_s);
    }

    void parsingInChunksFindsTheSameBlocks()
    {
        const QString sample = u"# A\n\nb\nc\n---\n\n- d\n\n  e\n\n      f\n- g\n\n\n1. h\n\n"
                               "```\ni\n\n\nj\n```\n\n> k\nl\n>\n> m\n\n    n\n\n    o\n\n"
                               "| p |\n|---|\n| q |\n\n<div>\n\n*r*\n\n</div>\n\n<!--\n\ns\n-->\n"
                               "[t]: /u\n'v'\n[w]: /x\n\n[^y]: z\n\n    z\n\n***\n"_s;
        (void)m_open->value(u"window.sample = %1.repeat(2000); 0"_s.arg(
            QString::fromUtf8(QJsonDocument(QJsonArray{sample}).toJson()).trimmed() + u"[0]"_s));
        (void)m_open->value(
            u"window.whole = []; parser.block.parse(sample, parser, {}, whole);"
            "window.runs = [...runsOf(sample, {})]; window.look = (tokens) => JSON.stringify("
            "tokens.map(t => [t.type, t.level, t.map, t.content, t.hidden, t.attrs])); 0"_s);
        QVERIFY(m_open->value(u"runs.length > 5"_s).toBool());
        QVERIFY(m_open->value(u"look(whole).length > 1000000"_s).toBool());
        QVERIFY(m_open->value(u"look(whole) === look(runs.flat())"_s).toBool());
    }

    void anchorsAndFootnotesSpanALongDocument()
    {
        const QString filler = u"Some text that fills the page.\n\n"_s.repeated(5000);
        QVERIFY(m_open->render(u"# A\n\nb[^1] c^[own & `d`] e[f]\n\n[^1]: first *note*\n\n"_s +
                               filler + u"# A\n\ng[^1] h[^2]\n\n[^2]: last\n\n"_s + filler +
                               u"# A\n\n[f]: https://f.org\n"_s));
        QCOMPARE(m_open->value(u"[...document.querySelectorAll('h1')].map(h => h.id).join()"_s)
                     .toString(),
                 u"user-content-a,user-content-a-1,user-content-a-2"_s);
        QCOMPARE(m_open
                     ->value(u"[...document.querySelectorAll('.footnote-item')].map(n => "
                             "n.textContent.replace(/[^\\w& ]/g, '').trim()).join()"_s)
                     .toString(),
                 u"first note,own & d,last"_s);
        QCOMPARE(m_open->value(u"document.querySelectorAll('.footnotes').length"_s).toInt(), 1);
        QVERIFY(m_open->value(u"document.querySelector('[href=\"https://f.org\"]') !== null"_s)
                    .toBool());
    }

    void rawHtmlIsNotSplitBetweenChunks()
    {
        QString text = u"<div>\n\n"_s;
        for (int i = 0; i < 10'000; ++i)
            text += u"Paragraph %1 goes on and on.\n\n"_s.arg(i);
        text += u"</div>\n\nend\n"_s;
        QVERIFY(m_open->render(text));
        QCOMPARE(m_open->value(u"document.querySelectorAll('.piece > div > p').length"_s).toInt(),
                 10'000);
        QCOMPARE(m_open->value(u"document.querySelector('.piece:last-child > p').textContent"_s)
                     .toString(),
                 u"end"_s);
    }

    void binaryTextIsHarmless()
    {
        QString text;
        for (int i = 0; i < 4096; ++i)
            text += QChar(static_cast<char16_t>((i * 7919) % 0xD7FF));
        QVERIFY(m_open->render(text));
        QVERIFY(m_open->render(QString(3, QChar(0)) + u"a"_s));
        QVERIFY(m_open->value(u"document.body.textContent.includes('a')"_s).toBool());
    }

    void deepNestingDoesNotBreakThePage()
    {
        QVERIFY(m_open->render(QString(5000, u'>') + u" a\n\n"_s + QString(5000, u'[') +
                               QString(3000, u'*') + u"b"_s));
        QVERIFY(m_open->render(u"still there"_s));
        QCOMPARE(m_open->html(), u"<p>still there</p>"_s);
    }

private:
    static void row(const char* name, const QString& text, const QString& expected)
    {
        QTest::newRow(name) << text << expected;
    }
    static void row(const char* name, const char* text, const char* expected)
    {
        row(name, QString::fromUtf8(text), QString::fromUtf8(expected));
    }
    static void row(const char* name, const char* text, const QString& expected)
    {
        row(name, QString::fromUtf8(text), expected);
    }
};

DRIFTBOX_PAGE_TEST(TestPageRendering)
#include "TestPageRendering.moc"
