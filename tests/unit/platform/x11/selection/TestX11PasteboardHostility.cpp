#include "platform/desktop/ThreadPoolTaskRunner.h"
#include "platform/selection/ByteSizes.h"
#include "platform/x11/selection/SelectionTransfer.h"
#include "support/Images.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardProgram.h"
#include "support/x11/ScriptedOwner.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

using Request = ScriptedOwner::Request;

namespace {

void expectLine(const char* line)
{
    QTest::ignoreMessage(QtWarningMsg, line);
}

} // namespace

/// Owners that break the protocol, by mistake or on purpose. Each costs a log line and its own
/// content; other owners and the program are not affected.
class TestX11PasteboardHostility : public QObject
{
    Q_OBJECT

    ThreadPoolTaskRunner m_runner;
    std::unique_ptr<PasteboardProgram> m_program;
    std::unique_ptr<ScriptedOwner> m_owner;

    [[nodiscard]] qint64 changeCount() const { return m_program->pasteboard.changeCount(); }
    [[nodiscard]] PasteboardContent content() const { return m_program->pasteboard.content(); }
    void letTheDeadlinePass() { m_program->clock.advance(SelectionTransfer::deadline); }

private Q_SLOTS:
    void init()
    {
        m_program = std::make_unique<PasteboardProgram>(m_runner);
        m_owner = std::make_unique<ScriptedOwner>();
    }

    void cleanup()
    {
        // Whatever happened before, the next well-behaved copy is read.
        const qint64 before = changeCount();
        ScriptedOwner honest;
        honest.formats = {{"UTF8_STRING", "honest"}};
        honest.take();
        QTRY_COMPARE(changeCount(), before + 1);
        QCOMPARE(content(), textOnly(u"honest"_s));
        honest.clear();
        QVERIFY(!honest.ownsSelection());
        m_program.reset();
        m_owner.reset();
    }

    void ownerThatNeverAnswersIsAskedTwice()
    {
        expectLine("Refused the clipboard's text: not complete within 2 s");
        for (const char* target : {"TARGETS", "UTF8_STRING", "STRING"})
            m_owner->answers.insert(target, ScriptedOwner::silence());
        m_owner->take();

        QTRY_COMPARE(m_owner->asked, QByteArrayList{"TARGETS"});
        letTheDeadlinePass();
        QTRY_COMPARE(m_owner->asked, QByteArrayList({"TARGETS", "UTF8_STRING"}));
        QCOMPARE(changeCount(), 0);
        letTheDeadlinePass();
        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(content().isEmpty());
        QCOMPARE(m_owner->asked, QByteArrayList({"TARGETS", "UTF8_STRING"}));
    }

    void formatThatNeverArrivesDoesNotAffectTheOthers()
    {
        expectLine("Refused the clipboard's image: not complete within 2 s");
        m_owner->formats = {{"UTF8_STRING", "text"}, {"text/rtf", "{\\rtf1}"}};
        m_owner->answers = {{"image/png", ScriptedOwner::silence()}};
        m_owner->take();
        QTRY_VERIFY(m_owner->asked.contains("image/png"));
        letTheDeadlinePass();

        QTRY_COMPARE(changeCount(), 1);
        QCOMPARE(content().text, std::optional(u"text"_s));
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
        QVERIFY(!content().png);
    }

    void answerAfterTheDeadlineIsNotMistakenForTheNext()
    {
        expectLine("Refused the clipboard's text: not complete within 2 s");
        std::optional<Request> textRequest;
        std::optional<Request> rtfRequest;
        m_owner->answers = {{"UTF8_STRING", [&](const Request& request) { textRequest = request; }},
                            {"text/rtf", [&](const Request& request) { rtfRequest = request; }}};
        m_owner->take();
        QTRY_VERIFY(textRequest.has_value());
        letTheDeadlinePass();
        QTRY_VERIFY(rtfRequest.has_value());

        m_owner->put(*textRequest, "UTF8_STRING", 8, "late text");
        m_owner->notify(*textRequest);
        m_owner->put(*rtfRequest, "text/rtf", 8, "{\\rtf1}");
        m_owner->notify(*rtfRequest);
        QVERIFY(m_owner->ownsSelection());
        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(!content().text);
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }

    void slowIncrementsEndAtTheDeadline()
    {
        expectLine("Refused the clipboard's text: not complete within 2 s");
        int drops = 0;
        m_owner->formats = {{"text/rtf", "{\\rtf1}"}};
        m_owner->answers = {{"UTF8_STRING", [&](const Request& request) {
                                 m_owner->announceIncrements(request, 100);
                                 m_owner->whenTaken(request, [this, request, &drops] {
                                     if (++drops < 20)
                                         m_owner->put(request, "UTF8_STRING", 8, "drop");
                                 });
                                 m_owner->notify(request);
                             }}};
        m_owner->take();
        QTRY_COMPARE(drops, 20);
        letTheDeadlinePass();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(!content().text);
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }

    void endlessIncrementsEndAtTheLimit()
    {
        expectLine("Refused the clipboard's text: larger than 64 MiB");
        qsizetype sent = 0;
        m_owner->answers = {{"UTF8_STRING", [&](const Request& request) {
                                 m_owner->announceIncrements(request, 100);
                                 m_owner->whenTaken(request, [this, request, &sent] {
                                     m_owner->put(request, "UTF8_STRING", 8,
                                                  QByteArray(2 * mebibyte, 'x'));
                                     sent += 2 * mebibyte;
                                 });
                                 m_owner->notify(request);
                             }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(!content().text);
        QVERIFY(sent >= 64 * mebibyte);
        QVERIFY(sent <= 70 * mebibyte);
    }

    void contentOf64MebibytesIsAccepted()
    {
        m_owner->formats = {{"UTF8_STRING", QByteArray(64 * mebibyte, 'x')}};
        m_owner->incrementSize = 2 * mebibyte;
        m_owner->take();

        QTRY_COMPARE_WITH_TIMEOUT(changeCount(), 1, 20'000);
        QCOMPARE(content().text->size(), 64 * mebibyte);
    }

    void contentAnnouncedAsTooLargeIsNotAwaited()
    {
        expectLine("Refused the clipboard's text: larger than 64 MiB");
        m_owner->answers = {{"UTF8_STRING", [&](const Request& request) {
                                 m_owner->announceIncrements(request, 0xffffffff);
                                 m_owner->notify(request);
                             }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(!content().text);
    }

    void announcedSizeIsNotTrusted_data()
    {
        QTest::addColumn<int>("announced");
        QTest::newRow("too small") << 1;
        QTest::newRow("too large") << 60'000'000;
    }

    void announcedSizeIsNotTrusted()
    {
        QFETCH(int, announced);
        m_owner->answers = {
            {"UTF8_STRING", [&](const Request& request) {
                 m_owner->announceIncrements(request, static_cast<std::uint32_t>(announced));
                 m_owner->whenTaken(request, [this, request, parts = std::make_shared<int>(0)] {
                     m_owner->put(request, "UTF8_STRING", 8, ++*parts <= 3 ? "part " : "");
                 });
                 m_owner->notify(request);
             }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QCOMPARE(content(), textOnly(u"part part part "_s));
    }

    void propertyAboveTheLimitIsRejected()
    {
        expectLine("Refused the clipboard's text: larger than 64 MiB");
        m_owner->formats = {{"text/rtf", "{\\rtf1}"}};
        m_owner->answers = {{"UTF8_STRING", [&](const Request& request) {
                                 for (int i = 0; i < 9; ++i)
                                     m_owner->append(request, QByteArray(8 * mebibyte, 'x'));
                                 m_owner->notify(request);
                             }}};
        m_owner->take();

        QTRY_COMPARE_WITH_TIMEOUT(changeCount(), 1, 20'000);
        QVERIFY(!content().text);
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }

    void protocolViolationsAreTolerated_data()
    {
        using Misdeed = std::function<void(ScriptedOwner&, const Request&)>;
        QTest::addColumn<Misdeed>("misdeed");
        QTest::newRow("elements of 32 bits") << Misdeed([](auto& owner, const auto& request) {
            owner.put(request, "UTF8_STRING", 32, "four");
            owner.notify(request);
        });
        QTest::newRow("no property")
            << Misdeed([](auto& owner, const auto& request) { owner.notify(request); });
        QTest::newRow("another property") << Misdeed([](auto& owner, const auto& request) {
            Request other = request;
            other.property = XCB_ATOM_WM_NAME;
            owner.put(other, "UTF8_STRING", 8, "text");
            owner.notify(other);
        });
        QTest::newRow("increments of increments") << Misdeed([](auto& owner, const auto& request) {
            owner.announceIncrements(request, 10);
            owner.whenTaken(request, [&owner, request] { owner.announceIncrements(request, 10); });
            owner.notify(request);
        });
        QTest::newRow("increments of changing kind")
            << Misdeed([](auto& owner, const auto& request) {
                   owner.announceIncrements(request, 10);
                   owner.whenTaken(request, [&owner, request, format = std::make_shared<int>(8)] {
                       owner.put(request, "UTF8_STRING", *format, "four");
                       *format = 32;
                   });
                   owner.notify(request);
               });
    }

    void protocolViolationsAreTolerated()
    {
        QFETCH(std::function<void(ScriptedOwner&, const Request&)>, misdeed);
        expectLine("Refused the clipboard's text: its owner does not keep to the protocol");
        m_owner->formats = {{"text/rtf", "{\\rtf1}"}};
        m_owner->answers = {
            {"UTF8_STRING", [&](const Request& request) { misdeed(*m_owner, request); }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(!content().text);
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }

    void malformedTargetsAreIgnored_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("text") << 8 << QByteArray("UTF8_STRING STRING");
        QTest::newRow("far too many") << 32 << QByteArray(400'000, '\x01');
    }

    void malformedTargetsAreIgnored()
    {
        QFETCH(int, format);
        QFETCH(QByteArray, bytes);
        m_owner->formats = {{"UTF8_STRING", "text"}};
        m_owner->answers = {{"TARGETS", [&](const Request& request) {
                                 m_owner->put(request, "ATOM", format, bytes);
                                 m_owner->notify(request);
                             }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QCOMPARE(content(), textOnly(u"text"_s));
    }

    void unknownTargetsAreNotRequested()
    {
        m_owner->answers = {{"TARGETS", [&](const Request& request) {
                                 m_owner->put(request, "ATOM", 32, QByteArray(4'000, '\xfe'));
                                 m_owner->notify(request);
                             }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(content().isEmpty());
        QCOMPARE(m_owner->asked, QByteArrayList{"TARGETS"});
    }

    void brokenImageDoesNotAffectTheText_data()
    {
        QTest::addColumn<QByteArray>("image");
        QTest::addColumn<QByteArray>("line");
        const QByteArray png = imageFile(colorfulImage({50, 50}), "png");
        QTest::newRow("garbage") << QByteArray("garbage")
                                 << QByteArray("not an image of a known kind");
        QTest::newRow("empty") << QByteArray() << QByteArray("not an image of a known kind");
        QTest::newRow("truncated")
            << png.left(png.size() / 2) << QByteArray("the image is incomplete");
        QTest::newRow("bomb") << pngThatClaims({30'000, 30'000})
                              << QByteArray("the image has too many pixels");
    }

    void brokenImageDoesNotAffectTheText()
    {
        QFETCH(QByteArray, image);
        QFETCH(QByteArray, line);
        expectLine("Refused the clipboard's image: " + line);
        m_owner->formats = {{"UTF8_STRING", "text"}, {"image/png", image}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QCOMPARE(content(), textOnly(u"text"_s));
    }

    void invalidUtf8IsRejected()
    {
        expectLine("Refused the clipboard's text: not valid UTF-8");
        m_owner->formats = {{"UTF8_STRING", "na\xefve"}, {"text/rtf", "{\\rtf1}"}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(!content().text);
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }

    void ownerThatEndsWhenAskedGivesNothing()
    {
        m_owner->answers = {{"UTF8_STRING", [&](const Request&) { m_owner->end(); }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QVERIFY(content().isEmpty());
    }

    void ownerThatEndsDuringIncrementsKeepsTheOtherFormats()
    {
        m_owner->formats = {{"UTF8_STRING", "text"}};
        m_owner->answers = {{"text/rtf", [&](const Request& request) {
                                 m_owner->announceIncrements(request, 100);
                                 m_owner->whenTaken(request, [this] { m_owner->end(); });
                                 m_owner->notify(request);
                             }}};
        m_owner->take();

        QTRY_COMPARE(changeCount(), 1);
        QCOMPARE(content(), textOnly(u"text"_s));
    }

    void unsolicitedAnswersAreIgnored()
    {
        std::optional<Request> request;
        m_owner->formats = {{"UTF8_STRING", "text"}};
        m_owner->answers = {{"text/rtf", [&](const Request& each) { request = each; }}};
        m_owner->take();
        QTRY_VERIFY(request.has_value());
        Request other = *request;
        other.target = XCB_ATOM_STRING;
        m_owner->put(other, "STRING", 8, "unasked");
        m_owner->notify(other);
        other = *request;
        other.selection = XCB_ATOM_PRIMARY;
        m_owner->notify(other);
        m_owner->put(*request, "text/rtf", 8, "{\\rtf1}");
        m_owner->notify(*request);
        m_owner->notify(*request);
        QVERIFY(m_owner->ownsSelection());

        QTRY_COMPARE(changeCount(), 1);
        QCOMPARE(content().rtf, std::optional<QByteArray>("{\\rtf1}"));
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11PasteboardHostility)
#include "TestX11PasteboardHostility.moc"
