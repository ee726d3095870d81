#include "support/main/TestMain.h"
#include "ui/list/PreviewText.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

QFont font()
{
    QFont result(u"DejaVu Sans"_s);
    result.setPixelSize(13);
    return result;
}

constexpr qreal width = 200;

QStringList texts(const QString& text)
{
    return PreviewText(previewLines(text), font(), width).texts();
}

} // namespace

class TestPreviewText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shortTextIsOneLine()
    {
        QCOMPARE(texts(u"short"_s), QStringList(u"short"_s));
        QCOMPARE(PreviewText(previewLines(u"short"_s), font(), width).height(),
                 PreviewText(previewLines(u"a\nb"_s), font(), width).height() / 2);
    }

    void longTextWrapsAndIsElidedAtTheTail()
    {
        const QString text = u"The quick brown fox jumps over the lazy dog, "_s.repeated(5);
        const QStringList lines = texts(text);
        QCOMPARE(lines.size(), 2);
        QVERIFY(text.startsWith(lines[0]));
        QVERIFY(lines[1].endsWith(u'…'));
        QVERIFY(text.mid(lines[0].size()).startsWith(lines[1].chopped(1)));
        for (const QString& line : lines)
            QVERIFY(QFontMetricsF(font()).horizontalAdvance(line) <= width + 5); // a space hangs
    }

    void textThatJustFitsIsNotElided()
    {
        const QStringList lines = texts(u"The quick brown fox jumps over the lazy dog"_s);
        QCOMPARE(lines.size(), 2);
        QCOMPARE(lines.join(QString()), u"The quick brown fox jumps over the lazy dog"_s);
    }

    void longWordWraps()
    {
        const QStringList lines = texts(QString(300, u'w'));
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[0].size() > 5);
        QVERIFY(lines[1].endsWith(u"w…"_s));
    }

    void lineBreaksAreKept()
    {
        QCOMPARE(texts(u"one\ntwo"_s), QStringList({u"one"_s, u"two"_s}));
        QCOMPARE(texts(u"one\ntwo\nthree"_s), QStringList({u"one"_s, u"two…"_s}));
        QCOMPARE(texts(u"one\ntwo \nthree"_s), QStringList({u"one"_s, u"two…"_s}));
    }

    void longFirstLineLeavesNoRoomForTheSecond()
    {
        const QStringList lines = texts(u"A first line that needs about two\nsecond"_s);
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[1].endsWith(u'…'));
        QVERIFY(!lines[1].contains(u"second"_s));
    }

    void longSecondLineIsElided()
    {
        const QStringList lines = texts(u"one\n"_s + u"a long second line "_s.repeated(4));
        QCOMPARE(lines[0], u"one"_s);
        QVERIFY(lines[1].startsWith(u"a long second"_s));
        QVERIFY(lines[1].endsWith(u'…'));
        QVERIFY(!lines[1].endsWith(u" …"_s));
    }

    void charactersAreNotSplit()
    {
        const QStringList lines = texts(u"👍🏽"_s.repeated(100));
        QString rest = lines.join(QString()).chopped(1);
        rest.remove(u"👍🏽"_s);
        QCOMPARE(rest, QString());
    }

    void rightToLeftTextIsRightAligned()
    {
        QVERIFY(inkIn(u"left"_s, QRect(0, 0, 60, 20)));
        QVERIFY(!inkIn(u"left"_s, QRect(140, 0, 60, 20)));
        QVERIFY(!inkIn(u"שלום"_s, QRect(0, 0, 60, 20)));
        QVERIFY(inkIn(u"שלום"_s, QRect(140, 0, 60, 20)));
    }

    void emptyTextIsOneLine()
    {
        QCOMPARE(texts(QString()).size(), 1);
        QCOMPARE(texts(u"\n\n"_s).size(), 1);
        QVERIFY(!inkIn(u"  "_s, QRect(0, 0, 200, 40)));
    }

    void fitsOnlyItsOwnFontAndWidth()
    {
        const PreviewText text(previewLines(u"a"_s), font(), width);
        QVERIFY(text.fits(font(), width));
        QVERIFY(!text.fits(font(), width + 1));
        QFont larger = font();
        larger.setPixelSize(14);
        QVERIFY(!text.fits(larger, width));
    }

private:
    static bool inkIn(const QString& text, QRect area)
    {
        QImage image(200, 40, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        PreviewText(previewLines(text), font(), width).paint(painter, QRect(0, 0, 200, 20));
        painter.end();
        QImage blank(area.size(), QImage::Format_RGB32);
        blank.fill(Qt::white);
        return image.copy(area) != blank;
    }
};

DRIFTBOX_TEST(TestPreviewText, QApplication)
#include "TestPreviewText.moc"
