#include "clipboard/OCREngine.h"
#include "support/Images.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/recognition/RenderedText.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString textIn(const QImage& picture)
{
    // No time limit matters here: what is read is tested, not how quickly.
    static const OCREngine engine(100s);
    return engine.recognizeText(imageFile(picture, "png"));
}

QImage whiteImage(const QSize& size)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

/// Gives Tesseract a folder of languages of its own while it lives.
class PrivateLanguages
{
public:
    explicit PrivateLanguages(const QStringList& languages)
    {
        const QDir installed(u"/usr/share/tesseract-ocr/5/tessdata"_s);
        for (const QString& language : languages) {
            const QString file = language + u".traineddata"_s;
            if (!QFile::link(installed.filePath(file), m_folder.filePath(file)))
                qFatal("Cannot link %s", qUtf8Printable(file));
        }
        qputenv("TESSDATA_PREFIX", m_folder.path().toUtf8());
    }
    ~PrivateLanguages() { qunsetenv("TESSDATA_PREFIX"); }
    PrivateLanguages(const PrivateLanguages&) = delete;
    PrivateLanguages& operator=(const PrivateLanguages&) = delete;

private:
    QTemporaryDir m_folder;
};

} // namespace

/// The whole of recognition on rendered pictures, with the languages that are installed.
class TestTextRecognition : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsLinesInTheirLanguage_data()
    {
        QTest::addColumn<QString>("typeface");
        QTest::addColumn<QString>("text");
        QTest::newRow("English") << u"Inter"_s
                                 << u"Please choose Settings\nand turn off the proxy."_s;
        QTest::newRow("Simplified Chinese")
            << u"Noto Sans CJK SC"_s << u"请在设置中打开网络\n然后重新启动电脑。"_s;
        QTest::newRow("Traditional Chinese")
            << u"Noto Sans CJK TC"_s << u"請在設定中開啟網路\n然後重新啟動電腦。"_s;
        QTest::newRow("Japanese") << u"Noto Sans CJK JP"_s
                                  << u"設定を開いてください。\nその後、もう一度試します。"_s;
        QTest::newRow("Korean") << u"Noto Sans CJK KR"_s
                                << u"설정에서 항목을 열고\n다시 시작해 주세요."_s;
        QTest::newRow("a language a line")
            << u"Noto Sans CJK SC"_s
            << u"Open the settings\n다시 시작해 주세요.\nしてください。\n重新启动电脑。"_s;
        QTest::newRow("English in Korean")
            << u"Noto Sans CJK SC"_s << u"파일을 Downloads 폴더에 저장했습니다"_s;
        QTest::newRow("English in Chinese")
            << u"Noto Sans CJK SC"_s << u"下载 Firefox 128 并安装"_s;
    }
    void readsLinesInTheirLanguage()
    {
        QFETCH(const QString, typeface);
        QFETCH(const QString, text);
        QCOMPARE(textIn(renderedText(text, {.typeface = typeface, .pixelSize = 16})), text);
    }

    void readsSmallLightTextOnDarkBackground()
    {
        const QString text = u"Warning: 3 of 27 tests failed\nVersion 2.4.1 fixes a crash"_s;
        const TextStyle style{.pixelSize = 11, .ink = QColor(0xd8d8d8), .ground = QColor(0x1e1e1e)};
        QCOMPARE(textIn(renderedText(text, style)), text);
    }

    void readsLargeText()
    {
        QCOMPARE(textIn(renderedText(u"Quarterly report"_s, {.pixelSize = 96})),
                 u"Quarterly report"_s);
    }

    void readsSingleWords()
    {
        for (const QString& word : {u"Save"_s, u"Cancel"_s, u"200"_s})
            QCOMPARE(textIn(renderedText(word)), word);
    }

    void readsDarkPanelsInALightPicture()
    {
        QImage picture = whiteImage({520, 160});
        QPainter painter(&picture);
        painter.fillRect(0, 0, 160, 160, QColor(0x22252b));
        drawText(painter, {20, 20}, u"General"_s, {.ink = QColor(0xd8d8d8)});
        drawText(painter, {20, 60}, u"Shortcuts"_s, {.ink = QColor(0xd8d8d8)});
        drawText(painter, {200, 20}, u"Keyboard shortcuts"_s);
        drawText(painter, {200, 50}, u"They work in every program."_s);
        painter.fillRect(200, 100, 90, 30, QColor(0x2f6fed));
        drawText(painter, {226, 106}, u"Save"_s, {.ink = Qt::white});
        painter.end();
        QCOMPARE(textIn(picture), u"General\nShortcuts\nKeyboard shortcuts\n"
                                  u"They work in every program.\nSave"_s);
    }

    void readsColumnByColumn()
    {
        QImage picture = whiteImage({700, 90});
        QPainter painter(&picture);
        drawText(painter, {10, 10},
                 u"The first column tells about one\nmatter that takes two lines."_s);
        drawText(painter, {360, 10},
                 u"The second column is read after\nthe first one has ended."_s);
        painter.end();
        QCOMPARE(textIn(picture), u"The first column tells about one\n"
                                  u"matter that takes two lines.\n"
                                  u"The second column is read after\n"
                                  u"the first one has ended."_s);
    }

    void readsTheSameEveryTime()
    {
        const QImage picture = renderedText(u"文件 a1b2 ファイル\nif (count > 0) 파일"_s,
                                            {.typeface = u"Noto Sans CJK JP"_s, .pixelSize = 12});
        const QString first = textIn(picture);
        QVERIFY(!first.isEmpty());
        QCOMPARE(textIn(picture), first);
    }

    void missingLanguageDoesNotPreventTheOthers()
    {
        const PrivateLanguages languages({u"eng"_s, u"jpn"_s});
        QCOMPARE(textIn(renderedText(u"Open the settings"_s)), u"Open the settings"_s);
        QCOMPARE(textIn(renderedText(u"設定を開いてください。"_s,
                                     {.typeface = u"Noto Sans CJK JP"_s, .pixelSize = 16})),
                 u"設定を開いてください。"_s);
    }

    void noLanguagesGiveNoText()
    {
        const PrivateLanguages none({});
        QCOMPARE(textIn(renderedText(u"Open the settings"_s)), QString());
    }

    void pictureWithoutTextGivesNone_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("one pixel") << QSize(1, 1);
        QTest::newRow("a line") << QSize(300, 1);
        QTest::newRow("a whiteImage ground") << QSize(300, 200);
    }
    void pictureWithoutTextGivesNone()
    {
        QFETCH(const QSize, size);
        QCOMPARE(textIn(whiteImage(size)), QString());
    }
};

DRIFTBOX_TEST(TestTextRecognition, QGuiApplication)
#include "TestTextRecognition.moc"
