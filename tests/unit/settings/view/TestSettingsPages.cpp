#include "support/main/TestMain.h"
#include "unit/settings/SettingsDesk.h"

#include "core/AppConfig.h"
#include "settings/view/AboutSettingsView.h"
#include "settings/view/ActionButton.h"
#include "settings/view/CapacityStepper.h"
#include "settings/view/ClipboardSettingsView.h"
#include "settings/view/FormLabel.h"
#include "settings/view/GeneralSettingsView.h"
#include "settings/view/NotesSettingsView.h"
#include "settings/view/StatusLine.h"
#include "settings/view/SwatchButton.h"
#include "settings/view/SystemColors.h"
#include "settings/view/ToggleRow.h"
#include "ui/theme/QuietStyle.h"
#include "ui/theme/Theme.h"
#include "unit/ui/theme/ShownSymbols.h"

#include <algorithm>

#include <QtGui/QAccessible>
#include <QtGui/QFontDatabase>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractSpinBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QSlider>

using namespace driftbox;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize pageSize(551, 420);
constexpr int narrowestPage = 491;

template <typename Page>
struct Shown
{
    Shown()
    {
        page.resize(pageSize);
        page.show();
        (void)QTest::qWaitForWindowExposed(&page);
    }

    template <typename Widget>
    [[nodiscard]] Widget& at(int index) const
    {
        return *page.template findChildren<Widget*>().at(index);
    }
    [[nodiscard]] ActionButton& button(const QString& text) const
    {
        const auto buttons = page.template findChildren<ActionButton*>();
        const auto found = std::ranges::find_if(
            buttons, [&](const ActionButton* button) { return button->text() == text; });
        if (found == buttons.end())
            qFatal("There is no such button");
        return **found;
    }
    [[nodiscard]] QStringList labels() const
    {
        QStringList texts;
        for (const QLabel* label : page.template findChildren<QLabel*>())
            texts << label->text();
        return texts;
    }

    SettingsDesk desk;
    Page page{desk.services, nullptr};
};

QAccessibleInterface& accessible(QWidget& widget)
{
    return *QAccessible::queryAccessibleInterface(&widget);
}

class ApplicationFont
{
public:
    explicit ApplicationFont(const QString& family) { QApplication::setFont(QFont(family)); }
    ~ApplicationFont() { QApplication::setFont(m_previous); }
    Q_DISABLE_COPY_MOVE(ApplicationFont)

private:
    QFont m_previous = QApplication::font();
};

void enlargeText(const QWidget& page, qreal factor)
{
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        QFont font = widget->font();
        if (!widget->testAttribute(Qt::WA_SetFont))
            continue;
        font.setPixelSize(qRound(font.pixelSize() * factor));
        widget->setFont(font);
    }
}

bool isCutOff(const QWidget& widget)
{
    const QSize least = widget.minimumSizeHint();
    return !widget.parentWidget()->rect().contains(widget.geometry()) ||
           widget.width() < least.width() || widget.height() < least.height() ||
           widget.height() < widget.heightForWidth(widget.width());
}

/// The widgets of the page that have not got the room they need, a line each.
QString cutOffIn(const QWidget& page)
{
    QString found;
    for (const QWidget* widget : page.findChildren<QWidget*>()) {
        const bool isPart = qobject_cast<const QAbstractSpinBox*>(widget->parentWidget());
        if (widget->isVisible() && !isPart && isCutOff(*widget)) {
            QDebug(&found) << widget << "of" << widget->size() << "needs"
                           << widget->minimumSizeHint() << "and, as wide as it is, the height"
                           << widget->heightForWidth(widget->width()) << "\n";
        }
    }
    return found;
}

} // namespace

class TestSettingsPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(new QuietStyle); }

    void toggleRowSwitchesTheHotkey()
    {
        const Shown<GeneralSettingsView> shown;
        auto& row = shown.at<ToggleRow>(0);
        QCOMPARE(row.text(), u"Enable double-tap ⌃ Control to summon"_s);
        QVERIFY(row.isChecked());
        QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(20, row.height() / 2));
        QVERIFY(!shown.desk.settings.hotkeyEnabled());
        QVERIFY(!shown.at<QComboBox>(0).isEnabled());
        QVERIFY(!shown.at<QSlider>(0).isEnabled());
        QVERIFY(row.isEnabled());

        QTest::keyClick(&row, Qt::Key_Space);
        QVERIFY(shown.desk.settings.hotkeyEnabled());
        QVERIFY(shown.at<QSlider>(0).isEnabled());
        accessible(row).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QVERIFY(!shown.desk.settings.hotkeyEnabled());
        row.setChecked(true);
        QCOMPARE(accessible(row).role(), QAccessible::CheckBox);
        QVERIFY(accessible(row).state().checked);
    }

    void pickerOffersThreeModifiers()
    {
        const Shown<GeneralSettingsView> shown;
        auto& picker = shown.at<QComboBox>(0);
        QCOMPARE(picker.count(), 3);
        QCOMPARE(picker.currentText(), u"⌃ Control"_s);
        QTest::keyClick(&picker, Qt::Key_Down);
        QCOMPARE(shown.desk.settings.hotkeyModifier(), HotkeyModifier::option);
        QCOMPARE(shown.at<ToggleRow>(0).text(), u"Enable double-tap ⌥ Option to summon"_s);
        shown.desk.settings.setHotkeyModifier(HotkeyModifier::command);
        QCOMPARE(picker.currentText(), u"⌘ Command"_s);
    }

    void sliderCoversItsRangeInSteps()
    {
        const Shown<GeneralSettingsView> shown;
        auto& slider = shown.at<QSlider>(0);
        QCOMPARE(slider.value(), 300);
        QTest::keyClick(&slider, Qt::Key_Home);
        QCOMPARE(shown.desk.settings.hotkeyThresholdMs(), 150);
        QVERIFY(shown.labels().contains(u"150 ms"_s));
        QTest::keyClick(&slider, Qt::Key_Right);
        QCOMPARE(shown.desk.settings.hotkeyThresholdMs(), 200);
        QTest::keyClick(&slider, Qt::Key_End);
        QCOMPARE(shown.desk.settings.hotkeyThresholdMs(), 600);
        QVERIFY(shown.labels().contains(u"600 ms"_s));

        accessible(slider).valueInterface()->setCurrentValue(333);
        QCOMPARE(shown.desk.settings.hotkeyThresholdMs(), 350);
        QCOMPARE(slider.value(), 350);
    }

    void draggingTheSliderSnapsToSteps()
    {
        const Shown<GeneralSettingsView> shown;
        auto& slider = shown.at<QSlider>(0);
        const int middle = slider.height() / 2;
        QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() / 3, middle});
        for (int x = slider.width() / 3; x >= 0; x -= 7) {
            QTest::mouseMove(&slider, {x, middle});
            QCOMPARE(slider.value() % 50, 0);
        }
        QTest::mouseMove(&slider, {-20, middle});
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, {-20, middle});
        QCOMPARE(shown.desk.settings.hotkeyThresholdMs(), 150);
    }

    void thresholdOutsideTheRangeIsShownAndKept()
    {
        SettingsDesk desk;
        desk.settings.setHotkeyThresholdMs(5000);
        const GeneralSettingsView page(desk.services, nullptr);
        QCOMPARE(page.findChild<QSlider*>()->value(), 600);
        QCOMPARE(desk.settings.hotkeyThresholdMs(), 5000);
        const auto labels = page.findChildren<QLabel*>();
        QVERIFY(std::ranges::any_of(labels, [](auto* l) { return l->text() == u"5000 ms"_s; }));
    }

    void launchAtLoginIsAppliedImmediately()
    {
        const Shown<GeneralSettingsView> shown;
        auto& row = shown.at<ToggleRow>(1);
        QCOMPARE(row.text(), u"Launch Drift Box at login"_s);
        row.click();
        QVERIFY(shown.desk.settings.launchAtLogin());
        row.click();
        QVERIFY(!shown.desk.settings.launchAtLogin());
    }

    void permissionIsCheckedWhenThePageIsShown()
    {
        Shown<GeneralSettingsView> shown;
        QVERIFY(shown.labels().contains(u"Granted — the global hotkey is active."_s));
        shown.desk.isTrusted = false;
        shown.button(u"Show system prompt again"_s).click();
        shown.button(u"Open System Settings…"_s).click();
        QVERIFY(shown.labels().contains(u"Granted — the global hotkey is active."_s));
        shown.button(u"Re-check"_s).click();
        const auto required =
            u"Required for the double-tap ⌃ Control hotkey to work across apps."_s;
        QVERIFY(shown.labels().contains(required));
        QCOMPARE(shown.desk.trustRequests, 1);
        QCOMPARE(shown.desk.settingsOpened, 1);

        shown.desk.isTrusted = true;
        shown.page.hide();
        QVERIFY(shown.labels().contains(required));
        shown.page.show();
        QVERIFY(!shown.labels().contains(required));
    }

    void permissionStatusHasItsSymbol()
    {
        Shown<GeneralSettingsView> shown;
        auto& line = shown.at<StatusLine>(0);
        const auto shows = [&line](const QString& symbol, SystemColor color) {
            return ShownSymbols::isIn(line, symbol, {.size = 15, .color = systemColor(color)});
        };
        QVERIFY(shows(u"checkmark.seal.fill"_s, SystemColor::green));
        shown.desk.isTrusted = false;
        shown.button(u"Re-check"_s).click();
        QVERIFY(shows(u"exclamationmark.triangle.fill"_s, SystemColor::orange));
    }

    void buttonsHaveTheirSymbols()
    {
        const auto shows = [](ActionButton& button, const QString& symbol, const QColor& color) {
            return ShownSymbols::isIn(button, symbol, {.size = 13, .color = color});
        };
        Shown<ClipboardSettingsView> clipboard;
        clipboard.desk.history.copy(u"unpinned"_s);
        QVERIFY(shows(clipboard.button(u"Clear all unpinned history now"_s), u"trash"_s,
                      Theme::destructive()));
        const Shown<NotesSettingsView> notes;
        QVERIFY(shows(notes.button(u"Close all notes"_s), u"xmark.circle"_s, Theme::destructive()));
        const Shown<AboutSettingsView> about;
        QVERIFY(shows(about.button(u"Send Feedback · 反馈"_s), u"envelope"_s, Theme::primary()));
    }

    void capacityChangesInSteps()
    {
        const Shown<ClipboardSettingsView> shown;
        auto& stepper = shown.at<CapacityStepper>(0);
        QCOMPARE(stepper.text(), u"30"_s);
        QCOMPARE(accessible(stepper).text(QAccessible::Name), u"Keep unpinned items"_s);
        QTest::keyClick(&stepper, Qt::Key_Up);
        QCOMPARE(shown.desk.settings.clipboardCapacity(), 35);
        for (int i = 0; i < 30; ++i)
            QTest::keyClick(&stepper, Qt::Key_Up);
        QCOMPARE(shown.desk.settings.clipboardCapacity(), 100);
        QCOMPARE(stepper.text(), u"100"_s);
        for (int i = 0; i < 30; ++i)
            QTest::keyClick(&stepper, Qt::Key_Down);
        QCOMPARE(shown.desk.settings.clipboardCapacity(), 5);
        QTest::keyClicks(&stepper, u"77"_s); // it is stepped, not typed
        QCOMPARE(shown.desk.settings.clipboardCapacity(), 5);
        accessible(stepper).valueInterface()->setCurrentValue(50);
        QCOMPARE(shown.desk.settings.clipboardCapacity(), 50);
        QCOMPARE(stepper.text(), u"50"_s);
    }

    void capacityOutsideTheRangeIsShownAndKept()
    {
        for (const qint64 capacity : {qint64(-3), qint64(5'000'000'000)}) {
            SettingsDesk desk;
            desk.settings.setClipboardCapacity(capacity);
            const ClipboardSettingsView page(desk.services, nullptr);
            QCOMPARE(page.findChild<CapacityStepper*>()->text(), QString::number(capacity));
            QCOMPARE(desk.settings.clipboardCapacity(), capacity);
        }
    }

    void clearButtonIsEnabledWhileUnpinnedItemsExist()
    {
        Shown<ClipboardSettingsView> shown;
        auto& clear = shown.button(u"Clear all unpinned history now"_s);
        QVERIFY(!clear.isEnabled());
        shown.desk.history.viewModel.togglePin(shown.desk.history.copy(u"pinned"_s));
        QVERIFY(!clear.isEnabled());
        shown.desk.history.copy(u"unpinned"_s);
        QVERIFY(clear.isEnabled());
        clear.click();
        QVERIFY(!clear.isEnabled());
        QCOMPARE(shown.desk.history.texts(), QStringList{u"pinned"_s});
    }

    void swatchesChooseTheColor()
    {
        const Shown<NotesSettingsView> shown;
        const QStringList names = {u"Yellow"_s, u"Blue"_s, u"Green"_s, u"Pink"_s};
        for (int i = 0; i < 4; ++i) {
            auto& swatch = shown.at<SwatchButton>(i);
            QCOMPARE(swatch.toolTip(), names.at(i));
            QCOMPARE(accessible(swatch).text(QAccessible::Name), names.at(i));
            QCOMPARE(accessible(swatch).role(), QAccessible::RadioButton);
            QCOMPARE(swatch.isChecked(), i == 0);
        }
        auto& pink = shown.at<SwatchButton>(3);
        QTest::mouseClick(&pink, Qt::LeftButton);
        QCOMPARE(shown.desk.settings.noteDefaultColor(), NoteColor::pink);
        QVERIFY(pink.isChecked());
        QVERIFY(!shown.at<SwatchButton>(0).isChecked());
        QTest::mouseClick(&pink, Qt::LeftButton);
        QVERIFY(pink.isChecked());
        auto& blue = shown.at<SwatchButton>(1);
        accessible(blue).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        QCOMPARE(shown.desk.settings.noteDefaultColor(), NoteColor::blue);
    }

    void closingTheNotesAsksForNoConfirmation()
    {
        const Shown<NotesSettingsView> shown;
        shown.button(u"Close all notes"_s).click();
        QCOMPARE(shown.desk.notesClosed, 1);
    }

    void aboutPageShowsItsTexts()
    {
        const Shown<AboutSettingsView> shown;
        const QStringList labels = shown.labels();
        for (const auto& text :
             {u"Drift Box"_s, u"A minimal quick-panel for macOS."_s,
              u"Version %1 (%2)"_s.arg(AppConfig::version(), AppConfig::buildNumber()),
              u"Buy me a coffee · 请作者喝咖啡"_s, u"WeChat · 微信"_s, u"Alipay · 支付宝"_s})
            QVERIFY2(labels.contains(text), qUtf8Printable(text));
        shown.button(u"Send Feedback · 反馈"_s).click();
        QCOMPARE(shown.desk.feedbacks, 1);
    }

    void buttonsShareALineWhereThereIsRoom()
    {
        QVERIFY(QFontDatabase::hasFamily(u"Inter"_s));
        const ApplicationFont font(u"Inter"_s);
        Shown<GeneralSettingsView> shown;
        const auto& first = shown.button(u"Open System Settings…"_s);
        const auto& last = shown.button(u"Show system prompt again"_s);
        QCOMPARE(last.y(), first.y());
        shown.page.resize(narrowestPage, pageSize.height());
        QTRY_VERIFY(last.y() > first.geometry().bottom());
        QCOMPARE(last.x(), first.x());
    }

    void nothingIsCutOff_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<qreal>("enlargement");
        QTest::addColumn<int>("width");
        for (const auto& family : {u"Inter"_s, u"DejaVu Sans"_s, u"DejaVu Sans Mono"_s}) {
            for (const qreal enlargement : {1.0, 1.5}) {
                for (const int width : {pageSize.width(), narrowestPage})
                    QTest::addRow("%s, %g times, %d wide", qUtf8Printable(family), enlargement,
                                  width)
                        << family << enlargement << width;
            }
        }
    }

    void nothingIsCutOff()
    {
        QFETCH(QString, family);
        QFETCH(qreal, enlargement);
        QFETCH(int, width);
        QVERIFY(QFontDatabase::hasFamily(family));
        const ApplicationFont font(family);
        Shown<GeneralSettingsView> general;
        Shown<ClipboardSettingsView> clipboard;
        Shown<NotesSettingsView> notes;
        Shown<AboutSettingsView> about;
        for (FormPage* page : std::initializer_list<FormPage*>{&general.page, &clipboard.page,
                                                               &notes.page, &about.page}) {
            page->resize(width, pageSize.height());
            enlargeText(*page, enlargement);
            QTRY_VERIFY2_WITH_TIMEOUT(cutOffIn(*page->widget()).isEmpty(),
                                      qUtf8Printable(cutOffIn(*page->widget())), 1000);
            QVERIFY(page->widget()->width() <= width);
        }
    }
};

DRIFTBOX_TEST(TestSettingsPages, QApplication)
#include "TestSettingsPages.moc"
