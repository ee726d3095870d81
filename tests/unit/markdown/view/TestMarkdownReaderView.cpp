#include "markdown/view/MarkdownEditor.h"
#include "markdown/view/MarkdownReaderView.h"
#include "markdown/view/MarkdownWebView.h"
#include "markdown/view/ReaderHeader.h"
#include "markdown/view/ReaderWindow.h"
#include "markdown/view/WebEngineModule.h"
#include "support/main/TestMain.h"
#include "ui/controls/SymbolButton.h"
#include "ui/theme/Theme.h"
#include "unit/markdown/OpenDocument.h"
#include "unit/ui/theme/ShownSymbols.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QAccessible>
#include <QtGui/QFontDatabase>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestMarkdownReaderView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_host.resize(780, 640);
        open("# Title\n");
    }

    void headerShowsTheFileNameAndItsActions()
    {
        QVERIFY(named(u"doc.md"_s));
        SymbolButton* edit = button(u"Edit"_s);
        QVERIFY(edit);
        QCOMPARE(edit->toolTip(), u"Edit source"_s);
        const QAccessibleInterface* element = QAccessible::queryAccessibleInterface(edit);
        QCOMPARE(element->text(QAccessible::Name), u"Edit"_s);
        QCOMPARE(element->text(QAccessible::Description), u"Edit source"_s);
        QCOMPARE(button(u"Reveal"_s)->toolTip(), u"Reveal file in Finder"_s);
    }

    void headerHasItsSymbols()
    {
        QCursor::setPos(2000, 2000);
        const auto shows = [](QWidget& widget, const QString& symbol, int size) {
            return ShownSymbols::isIn(widget, symbol, {.size = size, .color = Theme::secondary()});
        };
        QVERIFY(shows(*m_view->findChild<ReaderHeader*>(), u"doc.text"_s, 14));
        QVERIFY(shows(*button(u"Edit"_s), u"pencil"_s, 12));
        QVERIFY(shows(*button(u"Reveal"_s), u"folder"_s, 12));
        m_open->document.toggleEdit();
        QVERIFY(shows(*button(u"Preview"_s), u"eye"_s, 12));
    }

    void editButtonSwitchesBackAndForth()
    {
        QVERIFY(preview());
        QVERIFY(!editor());
        QTest::mouseClick(button(u"Edit"_s), Qt::LeftButton);
        QVERIFY(m_open->document.isEditing());
        QVERIFY(editor());
        QVERIFY(!preview());
        QCOMPARE(button(u"Preview"_s)->toolTip(), u"Switch to preview"_s);
        QTest::mouseClick(button(u"Preview"_s), Qt::LeftButton);
        QVERIFY(preview());
        QVERIFY(button(u"Edit"_s));
    }

    void revealShowsTheFileInTheFileManager()
    {
        QTest::mouseClick(button(u"Reveal"_s), Qt::LeftButton);
        QCOMPARE(m_open->opener.revealed, {QUrl::fromLocalFile(m_open->path)});
    }

    void dotShowsFromTheFirstKeystrokeUntilSaved()
    {
        QVERIFY(!dot()->isVisible());
        m_open->document.toggleEdit();
        QVERIFY(!dot()->isVisible());
        QTest::keyClick(editor(), Qt::Key_X);
        QVERIFY(dot()->isVisible());
        QCOMPARE(dot()->size(), QSize(6, 6));
        m_open->document.toggleEdit();
        QVERIFY(!dot()->isVisible());
        QCOMPARE(m_open->files.read(m_open->path), QByteArray("x# Title\n"));
    }

    void dotStaysIfSavingFails()
    {
        m_open->document.toggleEdit();
        QTest::keyClick(editor(), Qt::Key_X);
        m_open->files.failWrites(u"No space left on device"_s);
        QTest::ignoreMessage(QtCriticalMsg, "Save failed for doc.md: No space left on device");
        m_open->document.toggleEdit();
        QVERIFY(preview());
        QVERIFY(dot()->isVisible());
    }

    void longNameIsElidedAndKeepsTheButtonsVisible()
    {
        m_view.reset();
        m_open = std::make_unique<OpenDocument>();
        const QString name = QString(300, u'n') + u".md"_s;
        MarkdownReaderViewModel document(QUrl::fromLocalFile(u"/docs/"_s + name), m_open->files);
        MarkdownReaderView view(document, m_open->services, {}, &m_host);
        view.resize(400, 300);
        view.show();
        QCOMPARE(view.width(), 400);
        const auto buttons = view.findChildren<SymbolButton*>();
        QVERIFY(!buttons.isEmpty());
        for (const auto* each : buttons)
            QVERIFY(view.rect().contains(QRect(each->mapTo(&view, QPoint()), each->size())));
    }

    void editorKeepsTheTextUnchanged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("expected"); // with an x in front
        QTest::newRow("no end of line") << QByteArray("a") << QByteArray("xa");
        QTest::newRow("Windows line ends") << QByteArray("a\r\nb\r\n") << QByteArray("xa\r\nb\r\n");
        QTest::newRow("no-break space") << QByteArray("a\xC2\xA0") << QByteArray("xa\xC2\xA0");
        QTest::newRow("line separator")
            << QByteArray("a\xE2\x80\xA8z") << QByteArray("xa\xE2\x80\xA8z");
        QTest::newRow("tab") << QByteArray("\ta") << QByteArray("x\ta");
        QTest::newRow("empty") << QByteArray() << QByteArray("x");
    }

    void editorKeepsTheTextUnchanged()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, expected);
        open(bytes);
        m_open->document.toggleEdit();
        QVERIFY(!m_open->document.hasUnsavedChanges());
        QTest::keyClick(editor(), Qt::Key_X);
        QVERIFY(m_open->document.save());
        QCOMPARE(m_open->files.read(m_open->path), expected);
    }

    void editorUsesTheFixedSystemFont()
    {
        m_open->document.toggleEdit();
        QCOMPARE(editor()->font().pixelSize(), 13);
        QCOMPARE(editor()->font().family(),
                 QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    }

    void editorCopiesAndPastesThroughTheProgramsPasteboard()
    {
        m_open->document.toggleEdit();
        editor()->selectAll();
        QTest::keyClick(editor(), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(m_open->pasteboard.content().text, u"# Title\n"_s);
        QTest::keyClick(editor(), Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(m_open->document.markdown(), QString());
        QTest::keyClick(editor(), Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(editor(), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(m_open->document.markdown(), u"# Title\n# Title\n"_s);
        m_open->pasteboard.write({});
        QTest::keyClick(editor(), Qt::Key_V, Qt::ControlModifier); // nothing, and no crash
        QCOMPARE(m_open->document.markdown(), u"# Title\n# Title\n"_s);
    }

    void middleClickPastesThePrimarySelection()
    {
        m_open->document.toggleEdit();
        const QPoint start = editor()->cursorRect().center();
        QTest::mouseClick(editor()->viewport(), Qt::MiddleButton, {}, start);
        QCOMPARE(m_open->document.markdown(), u"# Title\n"_s);
        m_open->selectedText.tell(u"A "_s);
        QCOMPARE(m_open->document.markdown(), u"A # Title\n"_s);
    }

    void engineIsLoadedOnlyOnceThePreviewIsVisible()
    {
        m_view.reset();
        m_open = std::make_unique<OpenDocument>();
        MarkdownReaderView view(m_open->document, m_open->services, {}, &m_host);
        view.resize(m_host.size());
        QCoreApplication::processEvents();
        QCOMPARE(m_open->tasks.pending(), size_t(0));
        view.show();
        QTRY_COMPARE(m_open->tasks.pending(), size_t(1));
        QCOMPARE(m_open->webEngines.wanted, 0); // the page is put together elsewhere
        m_open->tasks.runAll();
        QCOMPARE(m_open->webEngines.wanted, 1);
        view.repaint();
        QCOMPARE(m_open->tasks.pending(), size_t(0));
    }

    void engineIsNotLoadedWithoutThePageFiles()
    {
        m_view.reset();
        m_open = std::make_unique<OpenDocument>();
        m_open->services.resources = MarkdownResource(u"/nowhere"_s);
        MarkdownReaderView view(m_open->document, m_open->services, {}, &m_host);
        view.resize(m_host.size());
        view.show();
        QTRY_COMPARE(m_open->tasks.pending(), size_t(1));
        m_open->tasks.runAll();
        QCOMPARE(m_open->webEngines.wanted, 0);
    }

    void missingModuleIsLoggedOnce()
    {
        WebEngineModule module(u"/nowhere/module.so"_s);
        module.preloading()();
        QTest::ignoreMessage(QtCriticalMsg,
                             QRegularExpression(u"The web engine cannot be loaded: .*not found"_s));
        QVERIFY(!module.engine());
        QVERIFY(!module.engine());
    }

    void windowIsCenteredNamedAndAsksBeforeClosing()
    {
        bool mayClose = false;
        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
        ReaderWindow window(m_open->document, m_open->services, {});
        window.setShouldClose([&mayClose] { return mayClose; });
        QCOMPARE(window.windowTitle(), u"doc.md"_s);
        QCOMPARE(window.accessibleName(), u"doc.md"_s);
        QCOMPARE(QAccessible::queryAccessibleInterface(&window)->role(), QAccessible::Window);
        QCOMPARE(window.size(), QSize(780, 640));
        QCOMPARE(m_open->windows.centered.size(), size_t(1));
        QVERIFY(!window.isVisible());
        window.present();
        QCOMPARE(m_open->windows.presented.size(), size_t(1));
        QVERIFY(window.isVisible());
        QVERIFY(!window.close());
        QVERIFY(window.isVisible());
        mayClose = true;
        QVERIFY(window.close());
    }

private:
    void open(const QByteArray& bytes)
    {
        m_view.reset();
        m_open = std::make_unique<OpenDocument>(bytes);
        m_view = std::make_unique<MarkdownReaderView>(m_open->document, m_open->services,
                                                      std::function<void(const QUrl&)>(), &m_host);
        m_view->resize(m_host.size());
        m_host.show();
        m_view->show();
    }

    [[nodiscard]] QWidget* named(const QString& name) const
    {
        for (auto* widget : m_view->findChildren<QWidget*>()) {
            QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
            if (accessible && accessible->text(QAccessible::Name) == name)
                return widget;
        }
        return nullptr;
    }

    [[nodiscard]] SymbolButton* button(const QString& label) const
    {
        return qobject_cast<SymbolButton*>(named(label));
    }

    [[nodiscard]] QWidget* dot() const { return named(u"Unsaved changes"_s); }
    [[nodiscard]] MarkdownEditor* editor() const { return m_view->findChild<MarkdownEditor*>(); }
    [[nodiscard]] MarkdownWebView* preview() const { return m_view->findChild<MarkdownWebView*>(); }

    QWidget m_host; // as a window of its own the view would be offered sizes
    std::unique_ptr<OpenDocument> m_open;
    std::unique_ptr<MarkdownReaderView> m_view;
};

DRIFTBOX_TEST(TestMarkdownReaderView, QApplication)
#include "TestMarkdownReaderView.moc"
