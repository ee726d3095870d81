#include "panel/view/MagicPanelRootView.h"

#include "fakes/FakeAppearance.h"
#include "panel/PanelAnimator.h"
#include "panel/SectionRegistry.h"
#include "panel/view/RailIconButton.h"
#include "support/main/TestMain.h"
#include "ui/controls/EmptyStateView.h"
#include "ui/theme/Theme.h"
#include "ui/theme/ThemeFollower.h"
#include "unit/ui/theme/ShownSymbols.h"

#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr SpringCurve rootViewSpring{.response = 0.34, .dampingFraction = 0.7};

/// A section whose page has a field to type into.
class FieldSection final : public MagicPanelSection
{
public:
    FieldSection(QString id, QString title)
        : m_id(std::move(id))
        , m_title(std::move(title))
    {
    }

    [[nodiscard]] QString id() const override { return m_id; }
    [[nodiscard]] QString title() const override { return m_title; }
    [[nodiscard]] QString systemImage() const override { return u"note.text"_s; }
    [[nodiscard]] QWidget* makeRootView(QWidget* parent) override
    {
        auto* page = new QWidget(parent);
        page->setObjectName(m_id);
        auto* field = new QLineEdit(page);
        field->setObjectName(m_id);
        page->setFocusProxy(field);
        return page;
    }

private:
    QString m_id;
    QString m_title;
};

/// The root view in a window of the panel's size, shown.
struct RootViewPanel
{
    explicit RootViewPanel(const QStringList& sections = {u"Clipboard"_s, u"Notes"_s})
    {
        for (const QString& title : sections)
            add(title);
        window.setAttribute(Qt::WA_TranslucentBackground);
        window.resize(552, 648);
        view.setGeometry(window.rect());
        window.show();
    }

    void add(const QString& title)
    {
        registry.registerSection(std::make_unique<FieldSection>(title.toLower(), title));
    }
    [[nodiscard]] QList<RailIconButton*> buttons() const
    {
        auto list = view.findChildren<RailIconButton*>();
        std::ranges::sort(list, {}, [](const auto* button) { return button->y(); });
        return list;
    }
    [[nodiscard]] QStringList buttonNames() const
    {
        QStringList names;
        for (const auto* button : buttons())
            names << button->accessibleName() + (button->isActive() ? u"*"_s : QString());
        return names;
    }
    [[nodiscard]] QWidget* page(const QString& id) const
    {
        const auto pages = view.findChildren<QWidget*>(id);
        const auto shown = std::ranges::find_if(
            pages, [](const QWidget* page) { return page->isVisible() && page->focusProxy(); });
        return shown == pages.end() ? nullptr : *shown;
    }
    [[nodiscard]] QImage picture()
    {
        QImage image(window.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        window.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    PanelAnimator animator;
    SectionRegistry registry;
    QWidget window;
    MagicPanelRootView& view = *new MagicPanelRootView(animator, registry, &window);
};

} // namespace

class TestMagicPanelRootView : public QObject
{
    Q_OBJECT

    FakeAppearance m_appearance;
    ThemeFollower m_theme{m_appearance};

private Q_SLOTS:
    void railHasOneButtonPerSectionAndSettings()
    {
        const RootViewPanel panel;
        QCOMPARE(panel.buttonNames(), QStringList({u"Clipboard*"_s, u"Notes"_s, u"Settings"_s}));
    }

    void railIsReadAndTabbedFromTheTop()
    {
        RootViewPanel panel;
        panel.add(u"More"_s);
        QApplication::sendPostedEvents();
        const QWidget* rail = panel.buttons().first()->parentWidget();
        const auto* accessible = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(rail));
        QStringList read;
        for (int i = 0; i < accessible->childCount(); ++i) {
            const QAccessibleInterface* button = accessible->child(i);
            const bool isChoice = button->role() == QAccessible::RadioButton;
            QCOMPARE(isChoice, button->text(QAccessible::Name) != u"Settings");
            QCOMPARE(bool(button->state().checked), i == 0);
            read << button->text(QAccessible::Name);
        }
        QCOMPARE(read, QStringList({u"Clipboard"_s, u"Notes"_s, u"More"_s, u"Settings"_s}));

        const auto buttons = panel.buttons();
        QCOMPARE(buttons[1]->nextInFocusChain(), buttons[2]);
        QCOMPARE(buttons[2]->nextInFocusChain(), buttons[3]);
    }

    void arrowKeysOnTheRailChangeTheSection()
    {
        RootViewPanel panel;
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.buttons().first()->setFocus();
        QTest::keyClick(panel.buttons().first(), Qt::Key_Down);
        QCOMPARE(panel.registry.activeID(), u"notes"_s);
        QCOMPARE(panel.buttonNames(), QStringList({u"Clipboard"_s, u"Notes*"_s, u"Settings"_s}));
    }

    void railHasTheSymbolsOfTheSections()
    {
        const RootViewPanel panel;
        const auto buttons = panel.buttons();
        const Symbols::Style active{
            .size = 15, .color = Theme::accent(), .weight = Symbols::Weight::semibold};
        const Symbols::Style other{.size = 15, .color = Theme::secondary()};
        QVERIFY(ShownSymbols::isIn(*buttons[0], u"note.text"_s, active));
        QVERIFY(ShownSymbols::isIn(*buttons[1], u"note.text"_s, other));
        QVERIFY(ShownSymbols::isIn(*buttons[2], u"gearshape"_s, other));
    }

    void railButtonsHaveTheirGeometry()
    {
        const RootViewPanel panel;
        const auto buttons = panel.buttons();
        const auto place = [&](const QWidget* button) {
            return QRect(button->mapTo(&panel.view, QPoint()), button->size());
        };
        // 28 for the shadow, then 12 above and 6 on each side of 32 in a rail of 44.
        QCOMPARE(place(buttons[0]), QRect(34, 40, 32, 32));
        QCOMPARE(place(buttons[1]), QRect(34, 40 + 32 + 4, 32, 32));
        QCOMPARE(place(buttons[2]), QRect(34, 648 - 28 - 12 - 32, 32, 32));
    }

    void pageFillsTheRestOfTheCard()
    {
        const RootViewPanel panel;
        const QWidget* page = panel.page(u"clipboard"_s);
        QVERIFY(page);
        QCOMPARE(QRect(page->mapTo(&panel.view, QPoint()), page->size()),
                 QRect(28 + 44 + 1, 28, 552 - 56 - 45, 592));
    }

    void emptyStateIsShownWithoutSections()
    {
        RootViewPanel panel(QStringList{});
        QCOMPARE(panel.buttonNames(), QStringList({u"Settings"_s}));
        const auto* empty = panel.view.findChild<EmptyStateView*>();
        QVERIFY(empty && empty->isVisible());
        auto* accessible =
            QAccessible::queryAccessibleInterface(panel.view.findChild<EmptyStateView*>());
        QCOMPARE(accessible->role(), QAccessible::StaticText);
        QCOMPARE(accessible->text(QAccessible::Name),
                 u"No section. Register a MagicPanelSection to get started."_s);

        panel.add(u"Clipboard"_s);
        QVERIFY(!empty->isVisible());
        QVERIFY(panel.page(u"clipboard"_s));
        QCOMPARE(panel.buttonNames(), QStringList({u"Clipboard*"_s, u"Settings"_s}));
    }

    void laterSectionGetsAButtonAndKeepsThePage()
    {
        RootViewPanel panel;
        const QPointer<QWidget> page = panel.page(u"clipboard"_s);
        panel.add(u"More"_s);
        QApplication::sendPostedEvents();
        QCOMPARE(panel.buttonNames(),
                 QStringList({u"Clipboard*"_s, u"Notes"_s, u"More"_s, u"Settings"_s}));
        QCOMPARE(panel.page(u"clipboard"_s), page.data());
    }

    void clickingARailButtonShowsItsSection()
    {
        RootViewPanel panel;
        const QPointer<QWidget> old = panel.page(u"clipboard"_s);
        QTest::mouseClick(panel.buttons()[1], Qt::LeftButton);
        QCOMPARE(panel.registry.activeID(), u"notes"_s);
        QVERIFY(panel.page(u"notes"_s));
        QVERIFY(!panel.page(u"clipboard"_s));
        QCOMPARE(panel.buttonNames(), QStringList({u"Clipboard"_s, u"Notes*"_s, u"Settings"_s}));
        QTRY_VERIFY(old.isNull());
    }

    void clickingTheActiveSectionKeepsItsPage()
    {
        RootViewPanel panel;
        const QPointer<QWidget> page = panel.page(u"clipboard"_s);
        QTest::mouseClick(panel.buttons()[0], Qt::LeftButton);
        QCOMPARE(panel.page(u"clipboard"_s), page.data());
    }

    void settingsButtonRequestsTheSettings()
    {
        RootViewPanel panel;
        const QSignalSpy requested(&panel.view, &MagicPanelRootView::settingsRequested);
        QTest::mouseClick(panel.buttons().last(), Qt::LeftButton);
        QCOMPARE(requested.count(), 1);
        QCOMPARE(panel.registry.activeID(), u"clipboard"_s);
        QVERIFY(!panel.buttons().last()->isActive());
    }

    void controlTabChangesTheSection()
    {
        RootViewPanel panel;
        panel.animator.setVisible(true, rootViewSpring);
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        QWindow* window = panel.window.windowHandle();
        QTest::keyClick(window, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(panel.registry.activeID(), u"notes"_s);
        QTest::keyClick(window, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(panel.registry.activeID(), u"clipboard"_s);
        QTest::keyClick(window, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(panel.registry.activeID(), u"notes"_s);
    }

    void pageReceivesTypingFromTheFirstKey()
    {
        RootViewPanel panel;
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.animator.setVisible(true, rootViewSpring);
        QVERIFY(panel.view.graphicsEffect());
        for (const char key : {'a', 'b', 'c'})
            QTest::keyClick(panel.window.windowHandle(), key);
        QCOMPARE(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text(), u"abc"_s);
    }

    void showingFocusesThePageAgain()
    {
        RootViewPanel panel;
        panel.animator.setVisible(true, rootViewSpring);
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        panel.buttons().last()->setFocus();
        panel.animator.setVisible(false, EaseInCurve{0.16});
        panel.window.hide();
        panel.window.show();
        panel.animator.setVisible(true, rootViewSpring);
        QVERIFY(QTest::qWaitForWindowActive(&panel.window));
        QCOMPARE(panel.window.focusWidget(), panel.page(u"clipboard"_s)->focusProxy());
    }

    void newSectionHasTheFocus()
    {
        RootViewPanel panel;
        panel.animator.setVisible(true, rootViewSpring);
        panel.registry.select(u"notes"_s);
        QCOMPARE(panel.window.focusWidget(), panel.page(u"notes"_s)->focusProxy());
    }

    void cardFollowsTheColorScheme()
    {
        RootViewPanel panel;
        const QColor light = panel.picture().pixelColor(300, 600);
        m_appearance.setColorScheme(ColorScheme::dark);
        const QColor dark = panel.picture().pixelColor(300, 600);
        m_appearance.setColorScheme(ColorScheme::light);
        QVERIFY(light.lightness() > 200 && dark.lightness() < 60);
    }

    void everyPixelIsOpaqueWithoutCompositing()
    {
        RootViewPanel panel;
        panel.view.setComposited(false);
        const QImage picture = panel.picture();
        for (const QPoint point :
             {QPoint(0, 0), QPoint(29, 29), QPoint(276, 647), QPoint(300, 300)})
            QCOMPARE(picture.pixelColor(point).alpha(), 255);
        panel.animator.setVisible(true, rootViewSpring);
        QVERIFY(!panel.view.graphicsEffect());
    }

    void cardRegionHasRoundCorners()
    {
        const RootViewPanel panel;
        const QRegion region = panel.view.cardRegion();
        QCOMPARE(region.boundingRect(), QRect(28, 28, 496, 592));
        QVERIFY(!region.contains(QPoint(29, 29)));
        QVERIFY(region.contains(QPoint(33, 33)));
        QVERIFY(region.contains(QPoint(276, 28)));
    }
};

DRIFTBOX_TEST(TestMagicPanelRootView, QApplication)
#include "TestMagicPanelRootView.moc"
