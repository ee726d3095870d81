#include "support/main/TestMain.h"
#include "ui/theme/CardShape.h"

#include <cmath>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace driftbox;

namespace {

constexpr QRectF card(60, 60, 120, 140);

QImage shadowPicture(qreal scale)
{
    QImage canvas(QSize(240, 260) * scale, QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(scale);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    CardShadow(14, 14, QColor(0, 0, 0, 200)).paint(painter, card);
    return canvas;
}

} // namespace

class TestCardShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapeFillsTheRectangleExceptItsCorners()
    {
        const QPainterPath path = continuousRoundedRect(card, 14);
        QCOMPARE(path.boundingRect(), card);
        QVERIFY(path.contains(card.center()));
        QVERIFY(path.contains(QPointF(card.center().x(), card.top() + 0.1)));
        QVERIFY(!path.contains(card.topLeft() + QPointF(1, 1)));
        QVERIFY(!path.contains(card.bottomRight() - QPointF(1, 1)));
    }

    void cornerMatchesAnArcOnTheDiagonal()
    {
        const QPainterPath path = continuousRoundedRect(card, 14);
        const double arc = 14 * (1 - 1 / std::sqrt(2.0));
        QVERIFY(path.contains(card.topLeft() + QPointF(arc + 0.05, arc + 0.05)));
        QVERIFY(!path.contains(card.topLeft() + QPointF(arc - 0.05, arc - 0.05)));
    }

    void shapeIsSymmetric()
    {
        const QRectF square(-50, -50, 100, 100);
        const QPainterPath path = continuousRoundedRect(square, 20);
        for (const QPointF point : {QPointF(-49, -25), QPointF(-45, -44), QPointF(-44, -40)}) {
            const bool inside = path.contains(point);
            QCOMPARE(path.contains(QPointF(point.y(), point.x())), inside);
            QCOMPARE(path.contains(QPointF(-point.x(), point.y())), inside);
            QCOMPARE(path.contains(-point), inside);
        }
    }

    void cornersShrinkInASmallRectangle_data()
    {
        QTest::addColumn<QRectF>("rectangle");
        QTest::newRow("small") << QRectF(0, 0, 10, 10);
        QTest::newRow("narrow") << QRectF(0, 0, 3, 200);
        QTest::newRow("empty") << QRectF();
    }
    void cornersShrinkInASmallRectangle()
    {
        QFETCH(QRectF, rectangle);
        QCOMPARE(continuousRoundedRect(rectangle, 14).boundingRect(), rectangle);
    }

    void zeroRadiusGivesTheRectangle()
    {
        QVERIFY(continuousRoundedRect(card, 0).contains(card.topLeft() + QPointF(0.1, 0.1)));
    }

    void shadowFadesOutAroundTheCard_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("1x") << 1.0;
        QTest::newRow("1.5x") << 1.5;
        QTest::newRow("2x") << 2.0;
    }
    void shadowFadesOutAroundTheCard()
    {
        QFETCH(double, scale);
        const QImage picture = shadowPicture(scale);
        const auto alphaAt = [&](double x, double y) {
            return qAlpha(picture.pixel(qRound(x * scale), qRound(y * scale)));
        };
        QCOMPARE(alphaAt(120, 130), 200);
        // Half as strong on the edge, nothing left where the blur ends, the same on all sides.
        for (const QPointF edge :
             {QPointF(60, 130), QPointF(180, 130), QPointF(120, 60), QPointF(120, 200)}) {
            QVERIFY(std::abs(alphaAt(edge.x(), edge.y()) - 100) <= 10);
        }
        QVERIFY(alphaAt(45, 130) < 10);
        QVERIFY(alphaAt(45, 130) > 0);
        QCOMPARE(alphaAt(30, 130), 0);
        QCOMPARE(alphaAt(120, 229), 0);
        QVERIFY(alphaAt(60, 60) < alphaAt(60, 130));
    }

    void shadowIsRenderedAgainForAnotherScale()
    {
        CardShadow shadow(14, 14, Qt::black);
        for (const double scale : {1.0, 2.0, 1.0}) {
            QImage canvas(QSize(240, 260) * scale, QImage::Format_ARGB32_Premultiplied);
            canvas.setDevicePixelRatio(scale);
            canvas.fill(Qt::transparent);
            QPainter painter(&canvas);
            shadow.paint(painter, card);
            painter.end();
            QCOMPARE(qAlpha(canvas.pixel(QPoint(120, 130) * scale)), 255);
            QCOMPARE(qAlpha(canvas.pixel(QPoint(30, 130) * scale)), 0);
        }
    }
};

DRIFTBOX_TEST(TestCardShape, QCoreApplication)
#include "TestCardShape.moc"
