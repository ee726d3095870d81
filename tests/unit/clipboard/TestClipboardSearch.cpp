#include "clipboard/ClipboardSearch.h"
#include "support/main/TestMain.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using Indices = ClipboardSearch::Indices;

namespace {

std::vector<ClipboardItem> texts(const QStringList& texts)
{
    std::vector<ClipboardItem> items;
    for (const QString& text : texts)
        items.push_back({.textContent = text});
    return items;
}

} // namespace

class TestClipboardSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsTextsInOrderButNoPictures()
    {
        auto items = texts({u"one"_s, u"two"_s, u"None"_s});
        items.push_back({.kind = ClipboardItem::Kind::image, .textContent = u"one"_s});
        items.push_back({.textContent = std::nullopt});
        ClipboardSearch search;
        QVERIFY(search.find(items, u"ONE"_s) == Indices({0, 2}));
        QVERIFY(search.find(items, u"three"_s).empty());
    }

    void typingNarrowsAndDeletingWidensTheResult()
    {
        const auto items = texts({u"a"_s, u"ab"_s, u"abc"_s, u"b"_s, u"cab"_s});
        ClipboardSearch search;
        QVERIFY(search.find(items, u"a"_s) == Indices({0, 1, 2, 4}));
        QVERIFY(search.find(items, u"ab"_s) == Indices({1, 2, 4}));
        QVERIFY(search.find(items, u"abc"_s) == Indices({2}));
        QVERIFY(search.find(items, u"ab"_s) == Indices({1, 2, 4}));
        QVERIFY(search.find(items, u"b"_s) == Indices({1, 2, 3, 4}));
        QVERIFY(search.find(items, u"cab"_s) == Indices({4}));
        QVERIFY(search.find(items, u"c"_s) == Indices({2, 4}));
    }

    void earlierQueriesAreCached()
    {
        auto items = texts({u"a"_s, u"ab"_s});
        ClipboardSearch search;
        (void)search.find(items, u"a"_s);
        (void)search.find(items, u"ab"_s);
        items[0].textContent = u"unlike before"_s; // only here: shows which items are searched
        QVERIFY(search.find(items, u"a"_s) == Indices({0, 1}));
        search.reset();
        QVERIFY(search.find(items, u"b"_s) == Indices({0, 1}));
    }

    void longQueryTypedLetterByLetterIsFound()
    {
        const QString all = u"the quick brown fox jumps over the lazy dog and then it sleeps"_s;
        const auto items = texts({all, all.toUpper(), u"the quick"_s});
        ClipboardSearch search;
        for (qsizetype length = 1; length <= all.size(); ++length)
            QVERIFY(search.find(items, all.first(length)).size() == (length <= 9 ? 3U : 2U));
        for (qsizetype length = all.size(); length > 0; --length)
            QVERIFY(search.find(items, all.first(length)).size() == (length <= 9 ? 3U : 2U));
    }

    void resultDoesNotDependOnEarlierQueries()
    {
        QRandomGenerator random(42);
        const auto word = [&random](int length) {
            QString text;
            for (int i = 0; i < length; ++i)
                text += u"abAB"_s[random.bounded(4)];
            return text;
        };
        std::vector<ClipboardItem> items;
        for (int i = 0; i < 50; ++i)
            items.push_back({.textContent = word(random.bounded(8))});
        ClipboardSearch search;
        QString query = u"a"_s;
        for (int step = 0; step < 2000; ++step) {
            const auto place = random.bounded(query.size() + 1);
            if (query.size() < 5 && random.bounded(2) == 0)
                query.insert(place, word(1));
            else if (query.size() > 1)
                query.remove(std::min(place, query.size() - 1), 1);
            ClipboardSearch fresh;
            QVERIFY(search.find(items, query) == fresh.find(items, query));
        }
    }
};

DRIFTBOX_TEST(TestClipboardSearch, QCoreApplication)
#include "TestClipboardSearch.moc"
