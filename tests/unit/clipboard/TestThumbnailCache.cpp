#include "clipboard/ThumbnailCache.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/ClipboardHistory.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestThumbnailCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_files = std::make_unique<FakeFileSystem>();
        m_tasks = std::make_unique<FakeTaskRunner>();
        m_cache = std::make_unique<ThumbnailCache>(*m_files, *m_tasks);
    }

    void picturesFitTheBoxAndKeepTheirAspectRatio_data()
    {
        QTest::addColumn<QSize>("original");
        QTest::addColumn<double>("ratio");
        QTest::addColumn<QSize>("shown");

        QTest::newRow("a screen") << QSize(3840, 2160) << 1.0 << QSize(106, 60);
        QTest::newRow("a screen on a fine screen") << QSize(3840, 2160) << 2.0 << QSize(213, 120);
        QTest::newRow("wide") << QSize(2200, 100) << 1.0 << QSize(220, 10);
        QTest::newRow("small ones are not enlarged") << QSize(16, 16) << 1.0 << QSize(16, 16);
        QTest::newRow("exactly the box") << QSize(220, 60) << 1.0 << QSize(220, 60);
        QTest::newRow("too thin to be seen") << QSize(4000, 1) << 1.0 << QSize(220, 1);
        QTest::newRow("too slim to be seen") << QSize(1, 4000) << 1.0 << QSize(1, 60);
        QTest::newRow("a fraction") << QSize(440, 120) << 1.5 << QSize(330, 90);
    }
    void picturesFitTheBoxAndKeepTheirAspectRatio()
    {
        QFETCH(const QSize, original);
        QFETCH(const double, ratio);
        QFETCH(const QSize, shown);
        m_files->setFile(u"/a.png"_s, picture(original));
        m_cache->setPixelRatio(ratio);
        const QImage image = load(m_id, u"/a.png"_s);
        QCOMPARE(image.size(), shown);
        QCOMPARE(image.devicePixelRatio(), ratio);
        QCOMPARE(image.pixelColor(0, 0), QColor(Qt::red));
    }

    void pictureIsLoadedOnce()
    {
        m_files->setFile(u"/a.png"_s, picture({10, 10}));
        const QSignalSpy loaded(m_cache.get(), &ThumbnailCache::imageLoaded);
        QVERIFY(m_cache->image(m_id, u"/a.png"_s).isNull());
        QVERIFY(m_cache->image(m_id, u"/a.png"_s).isNull());
        QCOMPARE(m_tasks->pending(), size_t(1));
        QCOMPARE(m_files->readCount(u"/a.png"_s), 0);
        m_tasks->runAll();
        QCOMPARE(loaded.count(), 1);
        QVERIFY(!m_cache->image(m_id, u"/a.png"_s).isNull());
        QCOMPARE(m_tasks->pending(), size_t(0));
    }

    void bytesThatAreNotAPictureGiveNone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("text") << QByteArray("<svg/>");
        QTest::newRow("cut off") << picture({300, 300}).first(60);
        QByteArray liar = picture({10, 10});
        liar.replace(16, 8, QByteArray::fromHex("7fffffff7fffffff"));
        QTest::newRow("says it is huge") << liar;
    }
    void bytesThatAreNotAPictureGiveNone()
    {
        QFETCH(const QByteArray, bytes);
        m_files->setFile(u"/a.png"_s, bytes);
        const QSignalSpy loaded(m_cache.get(), &ThumbnailCache::imageLoaded);
        QVERIFY(load(m_id, u"/a.png"_s).isNull());
        QVERIFY(loaded.isEmpty());
    }

    void pictureRemovedWhileLoadingIsDropped()
    {
        m_files->setFile(u"/a.png"_s, picture({10, 10}));
        const QSignalSpy loaded(m_cache.get(), &ThumbnailCache::imageLoaded);
        (void)m_cache->image(m_id, u"/a.png"_s);
        m_cache->remove(m_id);
        (void)m_cache->image(m_id, u"/a.png"_s);
        QCOMPARE(m_tasks->pending(), size_t(2));
        m_tasks->runNext();
        QVERIFY(loaded.isEmpty());
        m_tasks->runNext();
        QCOMPARE(loaded.count(), 1);
    }

    void newPixelRatioDropsCachedAndPendingPictures()
    {
        m_files->setFile(u"/a.png"_s, picture({400, 400}));
        (void)m_cache->image(m_id, u"/a.png"_s);
        m_cache->setPixelRatio(2);
        m_tasks->runAll();
        const QImage image = load(m_id, u"/a.png"_s);
        QCOMPARE(image.height(), 120);
        m_cache->setPixelRatio(2);
        QVERIFY(!m_cache->image(m_id, u"/a.png"_s).isNull());
    }

    void cacheMayBeDestroyedWhileAPictureLoads()
    {
        m_files->setFile(u"/a.png"_s, picture({10, 10}));
        const QSignalSpy loaded(m_cache.get(), &ThumbnailCache::imageLoaded);
        (void)m_cache->image(m_id, u"/a.png"_s);
        m_cache.reset();
        m_tasks->runAll();
        QCOMPARE(m_files->readCount(u"/a.png"_s), 1); // the load had been started
        QVERIFY(loaded.isEmpty());
    }

private:
    QImage load(const ClipboardItemId& id, const QString& path)
    {
        (void)m_cache->image(id, path);
        m_tasks->runAll();
        return m_cache->image(id, path);
    }

    const ClipboardItemId m_id = ClipboardItemId::random();
    std::unique_ptr<FakeFileSystem> m_files;
    std::unique_ptr<FakeTaskRunner> m_tasks;
    std::unique_ptr<ThumbnailCache> m_cache;
};

DRIFTBOX_TEST(TestThumbnailCache, QCoreApplication)
#include "TestThumbnailCache.moc"
