#include "markdown/MarkdownResource.h"
#include "support/main/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestMarkdownResource : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(m_folder->path()).mkdir(u"MarkdownReader"_s));
    }

    void readerFolderTakesPrecedenceOverTheTopLevel()
    {
        write(u"theme.css"_s, "top");
        QCOMPARE(resource().bundledString(u"theme.css"_s), u"top"_s);
        write(u"MarkdownReader/theme.css"_s, "own");
        QCOMPARE(resource().bundledString(u"theme.css"_s), u"own"_s);
    }

    void missingOrInvalidUtf8FilesGiveNothing()
    {
        QVERIFY(!resource().bundledString(u"theme.css"_s));
        write(u"MarkdownReader/theme.css"_s, "\xE9");
        QVERIFY(!resource().bundledString(u"theme.css"_s));
    }

    void everyOccurrenceOfAPlaceholderIsReplaced()
    {
        writeAll();
        write(u"MarkdownReader/reader.html"_s,
              "<__THEME_CSS__|__MARKDOWN_IT_JS__|__HIGHLIGHT_JS__|__MERMAID_JS__|__THEME_CSS__|"
              "__theme_css__>");
        QCOMPARE(resource().shellHTML(), u"<css|md|hl|mm|css|__theme_css__>"_s);
    }

    void placeholdersAreReplacedInSequence()
    {
        writeAll();
        write(u"MarkdownReader/reader.html"_s, "__MERMAID_JS__ __MARKDOWN_IT_JS__");
        write(u"MarkdownReader/markdown-it.min.js"_s, "a __MERMAID_JS__");
        write(u"MarkdownReader/mermaid.min.js"_s, "b __THEME_CSS__");
        QCOMPARE(resource().shellHTML(), u"b __THEME_CSS__ a b __THEME_CSS__"_s);
    }

    void scriptsCannotCloseTheirElement()
    {
        writeAll();
        write(u"MarkdownReader/reader.html"_s,
              "__THEME_CSS__ __MARKDOWN_IT_JS__ __HIGHLIGHT_JS__ __MERMAID_JS__");
        write(u"MarkdownReader/theme.css"_s, "</script>");
        write(u"MarkdownReader/markdown-it.min.js"_s, "'</script>'");
        write(u"MarkdownReader/highlight.min.js"_s, "'</SCRIPT>'");
        write(u"MarkdownReader/mermaid.min.js"_s, "'</ScRiPt' </div>");
        QCOMPARE(resource().shellHTML(),
                 u"</script> '<\\/script>' '<\\/script>' '<\\/script' </div>"_s);
    }

    void missingFileMeansNoPage_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : names())
            QTest::newRow(qPrintable(name)) << name;
    }

    void missingFileMeansNoPage()
    {
        QFETCH(QString, name);
        writeAll();
        QVERIFY(resource().shellHTML());
        QVERIFY(QFile::remove(m_folder->filePath(u"MarkdownReader/"_s + name)));
        QVERIFY(!resource().shellHTML());
        QVERIFY(!resource().pageWithNonce());
    }

    void everyLoadHasItsOwnNonce()
    {
        writeAll();
        write(u"MarkdownReader/reader.html"_s, "\xC3\xA9 __NONCE__ __NONCE__");
        const QList<QByteArray> one = resource().pageWithNonce()->split(' ');
        const QList<QByteArray> other = resource().pageWithNonce()->split(' ');
        QCOMPARE(one[0], QByteArray("\xC3\xA9"));
        QCOMPARE(one[1].size(), 32);
        QCOMPARE(one[2], one[1]);
        QVERIFY(other[1] != one[1]);
    }

    void pageIsRebuiltOnEveryRequest()
    {
        writeAll();
        const MarkdownResource resources = resource();
        QCOMPARE(resources.shellHTML(), u"page"_s);
        write(u"MarkdownReader/reader.html"_s, "another");
        QCOMPARE(resources.shellHTML(), u"another"_s);
    }

private:
    static QStringList names()
    {
        return {u"reader.html"_s, u"theme.css"_s, u"markdown-it.min.js"_s, u"highlight.min.js"_s,
                u"mermaid.min.js"_s};
    }

    void writeAll()
    {
        const QList<QByteArray> texts{"page", "css", "md", "hl", "mm"};
        for (qsizetype i = 0; i < texts.size(); ++i)
            write(u"MarkdownReader/"_s + names()[i], texts[i]);
    }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    [[nodiscard]] MarkdownResource resource() const { return MarkdownResource(m_folder->path()); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

DRIFTBOX_TEST(TestMarkdownResource, QCoreApplication)
#include "TestMarkdownResource.moc"
