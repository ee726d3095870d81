#include "clipboard/ClipboardRowActions.h"
#include "support/main/TestMain.h"
#include "unit/clipboard/ClipboardHistory.h"

#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;
using Action = ClipboardRowAction;

class TestClipboardRowActions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_history = std::make_unique<ClipboardHistory>();
        m_notes.clear();
        m_actions = std::make_unique<ClipboardRowActions>(
            m_history->viewModel, [this](const ClipboardItem& item) { m_notes.push_back(item); });
    }

    void plainPastingIsOfferedForRichTextOnly()
    {
        using Actions = std::vector<Action>;
        const auto plain = m_history->copy(u"a"_s);
        const auto rich = m_history->copy({.text = u"b"_s, .rtf = QByteArray("{}")});
        const auto image = m_history->copy({.png = QByteArray("PNG")});
        QVERIFY(ClipboardRowActions::hoverActions(plain) ==
                Actions({Action::makeNote, Action::remove}));
        QVERIFY(ClipboardRowActions::hoverActions(rich) ==
                Actions({Action::pastePlain, Action::makeNote, Action::remove}));
        QVERIFY(ClipboardRowActions::hoverActions(image) ==
                Actions({Action::recognizeText, Action::makeNote, Action::remove}));
    }

    void actionsHaveTheirHelpAndSymbol()
    {
        const auto item = m_history->copy(u"a"_s);
        const auto help = [](Action action, const ClipboardItem& of) {
            return ClipboardRowActions::help(action, of);
        };
        QCOMPARE(help(Action::pastePlain, item), u"Paste as plain text"_s);
        QCOMPARE(help(Action::recognizeText, item), u"Paste text in image (OCR)"_s);
        QCOMPARE(help(Action::makeNote, item), u"Make a sticky note"_s);
        QCOMPARE(help(Action::remove, item), u"Delete"_s);
        QCOMPARE(help(Action::togglePin, item), u"Pin (survives clear & reboot)"_s);
        m_actions->perform(Action::togglePin, item);
        QCOMPARE(help(Action::togglePin, m_history->viewModel.items().front()), u"Unpin"_s);

        QCOMPARE(ClipboardRowActions::systemImage(Action::pastePlain), u"doc.plaintext"_s);
        QCOMPARE(ClipboardRowActions::systemImage(Action::recognizeText), u"text.viewfinder"_s);
        QCOMPARE(ClipboardRowActions::systemImage(Action::makeNote), u"note.text"_s);
        QCOMPARE(ClipboardRowActions::systemImage(Action::remove), u"trash"_s);
        QCOMPARE(ClipboardRowActions::systemImage(Action::togglePin), u"pin.fill"_s);
    }

    void everyActionHasItsEffect()
    {
        const auto rich = m_history->copy({.text = u"a"_s, .rtf = QByteArray("{}")});
        m_actions->perform(Action::pastePlain, rich);
        QVERIFY(m_history->pasteboard.content() == PasteboardContent{.text = u"a"_s});
        QCOMPARE(m_history->posted.count(), 1);
        m_actions->pick(rich);
        QVERIFY(m_history->pasteboard.content().rtf);
        QCOMPARE(m_history->posted.count(), 2);
        m_actions->perform(Action::makeNote, rich);
        QVERIFY(m_notes == std::vector{rich});
        m_actions->perform(Action::togglePin, rich);
        QCOMPARE(m_history->viewModel.pinnedCount(), 1);
        m_actions->perform(Action::remove, rich);
        QVERIFY(m_history->viewModel.items().empty());
        QCOMPARE(m_history->posted.count(), 2);
    }

    void onlyTheActionOfThePictureBeingReadIsBusy()
    {
        const auto first = m_history->copy({.png = QByteArray("1")});
        const auto second = m_history->copy({.png = QByteArray("22")});
        m_actions->perform(Action::recognizeText, first);
        QVERIFY(m_actions->isBusy(Action::recognizeText, first));
        QVERIFY(!m_actions->isBusy(Action::remove, first));
        QVERIFY(!m_actions->isBusy(Action::recognizeText, second));

        m_actions->perform(Action::recognizeText, first);
        QCOMPARE(m_history->tasks.pending(), size_t(1));
        m_actions->perform(Action::recognizeText, second);
        QCOMPARE(m_history->tasks.pending(), size_t(2));
        m_history->tasks.runAll();
        QVERIFY(!m_actions->isBusy(Action::recognizeText, first));
    }

    void actionsAcceptReferencesIntoTheirList()
    {
        m_history->copy(u"a"_s);
        m_history->copy(u"b"_s);
        m_actions->pick(m_history->viewModel.items()[1]);
        QCOMPARE(m_history->texts(), QStringList({u"a"_s, u"b"_s}));
        m_actions->perform(Action::remove, m_history->viewModel.items()[0]);
        QCOMPARE(m_history->texts(), QStringList(u"b"_s));
    }

private:
    std::unique_ptr<ClipboardHistory> m_history;
    std::vector<ClipboardItem> m_notes;
    std::unique_ptr<ClipboardRowActions> m_actions;
};

DRIFTBOX_TEST(TestClipboardRowActions, QCoreApplication)
#include "TestClipboardRowActions.moc"
