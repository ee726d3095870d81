#include "fakes/FakeTaskRunner.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardProgram.h"
#include "support/x11/ScriptedOwner.h"
#include "support/x11/ScriptedRequestor.h"
#include "support/x11/Xclip.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto complaint = "The clipboard manager does not answer";

/// A clipboard manager: asked to, it takes the text from the clipboard and becomes its owner.
struct ClipboardManager
{
    ClipboardManager()
    {
        selection.answers["SAVE_TARGETS"] = [this](const ScriptedOwner::Request& request) {
            requestor.ask("UTF8_STRING");
            waiting = request;
        };
        QObject::connect(&look, &QTimer::timeout, &selection, [this] { lookForText(); });
        look.start(1ms);
        selection.take();
    }

    void lookForText()
    {
        if (!waiting || !requestor.answers.contains("UTF8_STRING"))
            return;
        kept.formats["UTF8_STRING"] = requestor.take("UTF8_STRING").bytes;
        kept.take();
        selection.put(*waiting, "NULL", 32, {});
        selection.notify(*waiting);
        waiting.reset();
    }

    ScriptedOwner selection{"CLIPBOARD_MANAGER"};
    ScriptedOwner kept;
    ScriptedRequestor requestor;
    QTimer look;
    std::optional<ScriptedOwner::Request> waiting;
};

} // namespace

class TestX11ClipboardHandover : public QObject
{
    Q_OBJECT

    FakeTaskRunner m_runner;
    std::unique_ptr<PasteboardProgram> m_program;

    [[nodiscard]] X11Pasteboard& pasteboard() const { return m_program->pasteboard; }

    void offer(const QString& text) const
    {
        pasteboard().write(textOnly(text));
        QTRY_VERIFY(Xclip::pastes(text.toUtf8()));
    }

    /// Time passes while the program waits.
    void passDuringHandover(std::chrono::milliseconds time)
    {
        QTimer::singleShot(20ms, this, [this, time] { m_program->clock.advance(time); });
    }

private Q_SLOTS:
    void init() { m_program = std::make_unique<PasteboardProgram>(m_runner); }
    void cleanup() { m_program.reset(); }

    void offeredContentOutlivesTheProgram()
    {
        const ClipboardManager manager;
        offer(u"to be kept"_s);
        pasteboard().handOver();
        QCOMPARE(manager.selection.asked, QByteArrayList{"SAVE_TARGETS"});
        m_program.reset();
        QVERIFY(Xclip::pastes("to be kept"));
    }

    void recentlyWrittenContentIsHandedOver()
    {
        const ClipboardManager manager;
        pasteboard().write(textOnly(u"just now"_s));
        pasteboard().handOver();
        m_program.reset();
        QVERIFY(Xclip::pastes("just now"));
    }

    void refusingManagerIsNotAwaited()
    {
        ScriptedOwner manager("CLIPBOARD_MANAGER");
        manager.answers["SAVE_TARGETS"] = [&](const auto& request) { manager.refuse(request); };
        manager.take();
        offer(u"text"_s);
        pasteboard().handOver();
        QCOMPARE(manager.asked, QByteArrayList{"SAVE_TARGETS"});
    }

    void frozenManagerIsAwaitedBriefly()
    {
        ScriptedOwner manager("CLIPBOARD_MANAGER");
        manager.answers["SAVE_TARGETS"] = ScriptedOwner::silence();
        manager.take();
        offer(u"text"_s);
        bool isWaiting = true;
        QTimer::singleShot(20ms, this, [&] {
            m_program->clock.advance(299ms);
            QTimer::singleShot(20ms, this, [&] {
                QVERIFY(isWaiting);
                QTest::ignoreMessage(QtWarningMsg, complaint);
                m_program->clock.advance(1ms);
            });
        });
        pasteboard().handOver();
        isWaiting = false;
    }

    void managerThatEndsMidwayDoesNotBlock()
    {
        ScriptedOwner manager("CLIPBOARD_MANAGER");
        manager.answers["SAVE_TARGETS"] = [&](const auto&) {
            QTimer::singleShot(0, &manager, &ScriptedOwner::end);
        };
        manager.take();
        offer(u"text"_s);
        passDuringHandover(300ms);
        QTest::ignoreMessage(QtWarningMsg, complaint);
        pasteboard().handOver();
    }

    void missingManagerIsNotAwaited()
    {
        offer(u"text"_s);
        pasteboard().handOver();
        QVERIFY(Xclip::pastes("text"));
    }

    void contentOfOthersIsNotHandedOver()
    {
        const ClipboardManager manager;
        offer(u"ours"_s);
        ScriptedOwner other;
        other.formats["UTF8_STRING"] = "theirs";
        other.take();
        pasteboard().handOver();
        QVERIFY(manager.selection.asked.empty());
    }

    void emptyClipboardIsNotHandedOver()
    {
        const ClipboardManager manager;
        pasteboard().handOver();
        QVERIFY(manager.selection.asked.empty());
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11ClipboardHandover)
#include "TestX11ClipboardHandover.moc"
