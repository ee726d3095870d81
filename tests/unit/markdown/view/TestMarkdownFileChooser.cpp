#include "markdown/view/MarkdownFileChooser.h"

#include "fakes/FakeStandardWindows.h"
#include "support/main/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestMarkdownFileChooser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void filesOfTheMarkdownTypeAreOffered()
    {
        QFileDialog dialog;
        setMarkdownFilter(dialog, true);
        QCOMPARE(dialog.mimeTypeFilters(), QStringList{u"text/markdown"_s});
    }

    void filesEndingInMdAreOfferedWithoutThatType()
    {
        QFileDialog dialog;
        setMarkdownFilter(dialog, false);
        QCOMPARE(dialog.nameFilters(), QStringList{u"Markdown (*.md)"_s});
    }

    void chosenFileIsReportedAndCancelingDoesNothing()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(u"a.md"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        FakeStandardWindows windows;
        MarkdownFileChooser panel(windows);
        QList<QUrl> chosen;
        const auto choose = [&chosen](const QUrl& url) { chosen << url; };

        QTest::ignoreMessage(QtWarningMsg, "This plugin does not support propagateSizeHints()");
        run(panel, choose);
        QCOMPARE(dialog()->windowTitle(), u"Open Markdown"_s);
        QCOMPARE(dialog()->labelText(QFileDialog::Accept), u"Open"_s);
        QCOMPARE(dialog()->fileMode(), QFileDialog::ExistingFile);
        QVERIFY(dialog()->testOption(QFileDialog::ReadOnly)); // no folder can be made
        QVERIFY(dialog()->isModal());
        QCOMPARE(windows.presented.size(), size_t(1));
        panel.run(choose); // the same one comes to the front
        QCOMPARE(windows.presented.size(), size_t(2));
        Q_EMIT dialog()->accepted(); // with nothing selected
        dialog()->reject();
        QTRY_VERIFY(!dialog());
        QVERIFY(chosen.isEmpty());

        run(panel, choose);
        dialog()->setDirectory(folder.path());
        dialog()->selectFile(u"a.md"_s);
        QMetaObject::invokeMethod(dialog(), "accept");
        QTRY_VERIFY(!dialog());
        QCOMPARE(chosen, {QUrl::fromLocalFile(file.fileName())});
    }

private:
    static void run(MarkdownFileChooser& panel, const std::function<void(const QUrl&)>& choose)
    {
        panel.run(choose);
        QVERIFY(dialog());
    }

    [[nodiscard]] static QFileDialog* dialog()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<QFileDialog*>(widget); found && found->isVisible())
                return found;
        }
        return nullptr;
    }
};

DRIFTBOX_TEST(TestMarkdownFileChooser, QApplication)
#include "TestMarkdownFileChooser.moc"
