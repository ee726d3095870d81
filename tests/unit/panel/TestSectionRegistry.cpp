#include "panel/SectionRegistry.h"
#include "support/main/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

class PlainSection final : public MagicPanelSection
{
public:
    explicit PlainSection(QString id)
        : m_id(std::move(id))
    {
    }

    [[nodiscard]] QString id() const override { return m_id; }
    [[nodiscard]] QString title() const override { return m_id.toUpper(); }
    [[nodiscard]] QString systemImage() const override { return u"note.text"_s; }
    [[nodiscard]] QWidget* makeRootView(QWidget*) override { return nullptr; }

private:
    QString m_id;
};

void add(SectionRegistry& registry, const QString& id)
{
    registry.registerSection(std::make_unique<PlainSection>(id));
}

QStringList ids(const SectionRegistry& registry)
{
    QStringList list;
    for (const auto& section : registry.sections())
        list << section->id();
    return list;
}

} // namespace

class TestSectionRegistry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registryIsEmptyInitially()
    {
        const SectionRegistry registry;
        QVERIFY(registry.sections().empty());
        QVERIFY(!registry.activeID());
        QCOMPARE(registry.activeSection(), nullptr);
    }

    void firstSectionIsActiveAndDuplicatesAreIgnored()
    {
        SectionRegistry registry;
        const QSignalSpy sectionsChanged(&registry, &SectionRegistry::sectionsChanged);
        const QSignalSpy activeChanged(&registry, &SectionRegistry::activeIDChanged);
        add(registry, u"clipboard"_s);
        const MagicPanelSection* first = registry.activeSection();
        add(registry, u"notes"_s);
        add(registry, u"clipboard"_s);

        QCOMPARE(ids(registry), QStringList({u"clipboard"_s, u"notes"_s}));
        QCOMPARE(registry.activeID(), u"clipboard"_s);
        QCOMPARE(registry.activeSection(), first);
        QCOMPARE(sectionsChanged.count(), 2);
        QCOMPARE(activeChanged.count(), 1);
    }

    void idsAreComparedExactly()
    {
        SectionRegistry registry;
        add(registry, u"notes"_s);
        add(registry, u"Notes"_s);
        QCOMPARE(registry.sections().size(), 2U);
    }

    void selectingMakesASectionActive()
    {
        SectionRegistry registry;
        add(registry, u"clipboard"_s);
        add(registry, u"notes"_s);
        const QSignalSpy activeChanged(&registry, &SectionRegistry::activeIDChanged);

        registry.select(u"notes"_s);
        QCOMPARE(registry.activeID(), u"notes"_s);
        QCOMPARE(registry.activeSection()->id(), u"notes"_s);
        QCOMPARE(activeChanged.count(), 1);
    }

    void selectingTheActiveOrAnUnknownSectionChangesNothing()
    {
        SectionRegistry registry;
        add(registry, u"clipboard"_s);
        const QSignalSpy activeChanged(&registry, &SectionRegistry::activeIDChanged);

        registry.select(u"clipboard"_s);
        registry.select(u"Clipboard"_s);
        registry.select(QString());
        QCOMPARE(registry.activeID(), u"clipboard"_s);
        QCOMPARE(activeChanged.count(), 0);
    }

    void emptyIdIsValid()
    {
        SectionRegistry registry;
        add(registry, u""_s);
        QVERIFY(registry.activeID().has_value());
        QVERIFY(registry.activeSection());
        add(registry, u"notes"_s);
        QCOMPARE(registry.activeID(), u""_s);
    }

    void neighborsWrapAroundTheEnds()
    {
        SectionRegistry registry;
        registry.selectNeighbor(1);
        QVERIFY(!registry.activeID());

        add(registry, u"clipboard"_s);
        registry.selectNeighbor(1);
        QCOMPARE(registry.activeID(), u"clipboard"_s);

        add(registry, u"notes"_s);
        add(registry, u"more"_s);
        registry.selectNeighbor(-1);
        QCOMPARE(registry.activeID(), u"more"_s);
        registry.selectNeighbor(1);
        QCOMPARE(registry.activeID(), u"clipboard"_s);
        registry.selectNeighbor(-7);
        QCOMPARE(registry.activeID(), u"more"_s);
    }
};

DRIFTBOX_TEST(TestSectionRegistry, QCoreApplication)
#include "TestSectionRegistry.moc"
