#include "platform/x11/selection/IncrementalAnswer.h"
#include "support/Images.h"
#include "support/VirtualDesktop.h"
#include "support/x11/PasteboardTest.h"
#include "support/x11/ScriptedOwner.h"
#include "support/x11/ScriptedRequestor.h"
#include "support/x11/Xclip.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace driftbox;
using namespace Qt::StringLiterals;

class TestX11PasteboardOffering : public PasteboardTest
{
    Q_OBJECT

private Q_SLOTS:
    void writeIsVisibleImmediately()
    {
        const qint64 before = pasteboard().changeCount();
        pasteboard().write(textOnly(u"written"_s));

        QCOMPARE(pasteboard().changeCount(), before + 1);
        QCOMPARE(pasteboard().content(), textOnly(u"written"_s));
    }

    void writeDoesNotCountAsAnExternalChange()
    {
        pasteboard().write(textOnly(u"written"_s));
        const qint64 after = pasteboard().changeCount();
        QTRY_VERIFY(Xclip::pastes("written"));

        QCOMPARE(pasteboard().changeCount(), after);
        QCOMPARE(pasteboard().content(), textOnly(u"written"_s));
    }

    void textIsPastedUnderEveryTarget_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("utf8") << u"UTF8_STRING"_s << QByteArray("caf\xc3\xa9");
        QTest::newRow("mime") << u"text/plain;charset=utf-8"_s << QByteArray("caf\xc3\xa9");
        QTest::newRow("plain") << u"text/plain"_s << QByteArray("caf\xc3\xa9");
        QTest::newRow("any") << u"TEXT"_s << QByteArray("caf\xc3\xa9");
        QTest::newRow("latin1") << u"STRING"_s << QByteArray("caf\xe9");
    }

    void textIsPastedUnderEveryTarget()
    {
        QFETCH(QString, target);
        QFETCH(QByteArray, bytes);
        pasteboard().write(textOnly(u"caf\u00e9"_s));
        QTRY_COMPARE(Xclip::pasted(target), bytes);
    }

    void everyFormatIsPasted()
    {
        const QByteArray png = imageFile(colorfulImage({30, 20}), "png");
        pasteboard().write({.text = u"x"_s, .rtf = "{\\rtf1 x}", .png = png});

        QTRY_COMPARE(Xclip::pasted(u"image/png"_s), png);
        QCOMPARE(Xclip::pasted(u"text/rtf"_s), "{\\rtf1 x}");
        QCOMPARE(Xclip::pasted(u"application/rtf"_s), "{\\rtf1 x}");
        QCOMPARE(Xclip::pasted(u"text/richtext"_s), "{\\rtf1 x}");
    }

    void largeContentIsPastedCompletely_data()
    {
        QTest::addColumn<QString>("text");
        QString changing;
        for (int i = 0; changing.size() < 3'000'000; ++i)
            changing += QString::number(i) + u" \U0001F600\u20ac\n"_s;
        QTest::newRow("more than fits one property") << QString(400'000, u'x');
        QTest::newRow("encoded on the way") << changing;
        QTest::newRow("just as much as fits") << QString(256 * 1024 - 64, u'x');
        QTest::newRow("pairs all along") << u"\U0001F600"_s.repeated(1'000'000);
    }

    void largeContentIsPastedCompletely()
    {
        QFETCH(QString, text);
        pasteboard().write(textOnly(text));
        QTRY_VERIFY(Xclip::pastes(text.toUtf8()));
    }

    void emptyTextIsOffered()
    {
        pasteboard().write(textOnly(u""_s));
        ScriptedRequestor requestor;
        QTRY_VERIFY((requestor.ask("UTF8_STRING"), requestor.answers.contains("UTF8_STRING")));
        QCOMPARE(requestor.take("UTF8_STRING").type, "UTF8_STRING");
    }

    void emptyContentOffersNothing()
    {
        pasteboard().write(textOnly(u"before"_s));
        QTRY_VERIFY(Xclip::pastes("before"));
        const qint64 before = pasteboard().changeCount();
        pasteboard().write({});
        QCOMPARE(pasteboard().changeCount(), before + 1);
        QTRY_COMPARE(Xclip::pasted(u"UTF8_STRING"_s), "");
        QCOMPARE(pasteboard().changeCount(), before + 1);
    }

    void targetsAreListed()
    {
        pasteboard().write({.text = u"\u20ac"_s, .rtf = "{\\rtf1}", .png = {}});
        ScriptedRequestor requestor;
        QTRY_VERIFY((requestor.ask("TARGETS"), requestor.answers.contains("TARGETS")));
        const auto targets = requestor.take("TARGETS");

        QCOMPARE(targets.type, "ATOM");
        QCOMPARE(targets.format, 32);
        QCOMPARE(requestor.namesOf(targets.bytes),
                 QByteArrayList({"TARGETS", "MULTIPLE", "TIMESTAMP", "UTF8_STRING",
                                 "text/plain;charset=utf-8", "text/plain", "TEXT", "text/rtf",
                                 "application/rtf", "text/richtext"}));
    }

    void targetsThatAreNotOfferedAreRefused()
    {
        pasteboard().write(textOnly(u"\u20ac"_s));
        QTRY_VERIFY(Xclip::pastes("\xe2\x82\xac"));
        ScriptedRequestor requestor;
        for (const char* target : {"STRING", "image/png", "text/rtf", "text/html", "UNHEARD_OF"})
            requestor.ask(target);

        QTRY_COMPARE(requestor.answers,
                     QByteArrayList({"STRING refused", "image/png refused", "text/rtf refused",
                                     "text/html refused", "UNHEARD_OF refused"}));
    }

    void timestampIsTheTimeOfTheClaim()
    {
        pasteboard().write(textOnly(u"x"_s));
        QTRY_VERIFY(Xclip::pastes("x"));
        ScriptedRequestor requestor;
        requestor.ask("TIMESTAMP");
        QTRY_COMPARE(requestor.answers, QByteArrayList{"TIMESTAMP"});
        const auto time = requestor.take("TIMESTAMP");

        QCOMPARE(time.type, "INTEGER");
        QCOMPARE(time.format, 32);
        QVERIFY(time.bytes != QByteArray(4, '\0'));
    }

    void multipleTargetsAreAnsweredAtOnce()
    {
        const QString large(600'000, u'x');
        pasteboard().write({.text = large, .rtf = "{\\rtf1}", .png = {}});
        QTRY_VERIFY(Xclip::pastes(large.toUtf8()));
        ScriptedRequestor requestor;
        requestor.askForMultiple({"text/rtf", "image/png", "UTF8_STRING", "MULTIPLE"});
        QTRY_COMPARE(requestor.answers, QByteArrayList{"MULTIPLE"});

        const auto pairs = requestor.take("MULTIPLE");
        QCOMPARE(requestor.namesOf(pairs.bytes),
                 QByteArrayList({"text/rtf", "FOR_text/rtf", "image/png", "NONE", "UTF8_STRING",
                                 "FOR_UTF8_STRING", "MULTIPLE", "NONE"}));
        QCOMPARE(requestor.take("FOR_text/rtf").bytes, "{\\rtf1}");
        requestor.takeIncrements("FOR_UTF8_STRING");
        QTRY_VERIFY(requestor.hasTakenLastIncrement);
        QCOMPARE(requestor.increments, large.toUtf8());
    }

    void multipleTargetsWithoutAListAreRefused()
    {
        pasteboard().write(textOnly(u"x"_s));
        QTRY_VERIFY(Xclip::pastes("x"));
        ScriptedRequestor requestor;
        requestor.ask("MULTIPLE"); // the property does not exist
        requestor.askWithoutProperty("MULTIPLE");
        QTRY_COMPARE(requestor.answers, QByteArrayList({"MULTIPLE refused", "MULTIPLE refused"}));
    }

    void requestsWithoutAPropertyAreAnswered()
    {
        pasteboard().write(textOnly(u"x"_s));
        QTRY_VERIFY(Xclip::pastes("x"));
        ScriptedRequestor requestor;
        requestor.askWithoutProperty("STRING");
        QTRY_COMPARE(requestor.answers, QByteArrayList{"STRING"});
        QCOMPARE(requestor.take("STRING").bytes, "x");
    }

    void manyRequestorsAreAnsweredConcurrently()
    {
        const QByteArray text(600'000, 'x');
        pasteboard().write(textOnly(QString::fromLatin1(text)));
        QTRY_VERIFY(Xclip::pastes(text));

        std::vector<std::unique_ptr<ScriptedRequestor>> requestors;
        for (int i = 0; i < 12; ++i) {
            requestors.push_back(std::make_unique<ScriptedRequestor>());
            requestors.back()->ask("UTF8_STRING");
        }
        for (const auto& requestor : requestors) {
            QTRY_COMPARE(requestor->answers, QByteArrayList{"UTF8_STRING"});
            requestor->takeIncrements("UTF8_STRING");
        }
        for (const auto& requestor : requestors) {
            QTRY_VERIFY(requestor->hasTakenLastIncrement);
            QCOMPARE(requestor->increments, text);
        }
    }

    void requestorThatNeverReadsDoesNotBlockOthers()
    {
        const QByteArray text(600'000, 'x');
        pasteboard().write(textOnly(QString::fromLatin1(text)));
        QTRY_VERIFY(Xclip::pastes(text));

        ScriptedRequestor stuck;
        stuck.ask("UTF8_STRING");
        QTRY_COMPARE(stuck.answers, QByteArrayList{"UTF8_STRING"});
        QVERIFY(Xclip::pastes(text));

        // The requestor is awaited only as long as it makes progress.
        m_program->clock.advance(IncrementalAnswer::idleTimeout / 2);
        stuck.takeIncrements("UTF8_STRING");
        QTRY_VERIFY(stuck.hasTakenLastIncrement);
        QCOMPARE(stuck.increments, text);

        ScriptedRequestor dead;
        dead.ask("UTF8_STRING");
        QTRY_COMPARE(dead.answers, QByteArrayList{"UTF8_STRING"});
        m_program->clock.advance(IncrementalAnswer::idleTimeout);
        dead.takeIncrements("UTF8_STRING");
        QVERIFY(Xclip::pastes(text));
        QCOMPARE(dead.incrementCount, 0);
    }

    void vanishedRequestorsAreForgotten()
    {
        const QByteArray text(600'000, 'x');
        pasteboard().write(textOnly(QString::fromLatin1(text)));
        QTRY_VERIFY(Xclip::pastes(text));

        ScriptedRequestor goneBefore;
        goneBefore.ask("UTF8_STRING");
        goneBefore.destroyWindow();
        ScriptedRequestor goneAmid;
        goneAmid.ask("UTF8_STRING");
        QTRY_COMPARE(goneAmid.answers, QByteArrayList{"UTF8_STRING"});
        goneAmid.destroyWindow();
        auto ended = std::make_unique<ScriptedRequestor>();
        ended->ask("UTF8_STRING");
        QTRY_COMPARE(ended->answers, QByteArrayList{"UTF8_STRING"});
        ended.reset();

        QVERIFY(Xclip::pastes(text));
        m_program->clock.advance(IncrementalAnswer::idleTimeout);
        QVERIFY(Xclip::pastes(text));
    }

    void ownWindowsAreNotAnswered()
    {
        const QByteArray text(600'000, 'x');
        pasteboard().write(textOnly(QString::fromLatin1(text)));
        QTRY_VERIFY(Xclip::pastes(text));
        const xcb_window_t watched =
            m_program->connection->createHiddenWindow(XCB_EVENT_MASK_PROPERTY_CHANGE);
        static_cast<void>(m_program->connection->atom("THE_WINDOW_IS_THERE"));

        ScriptedRequestor impostor;
        impostor.askInTheNameOf(watched, "UTF8_STRING");
        impostor.askInTheNameOf(m_program->connection->root(), "UTF8_STRING");
        QVERIFY(Xclip::pastes(text));
        m_program->clock.advance(IncrementalAnswer::idleTimeout);

        // The events selected on the window are as before.
        int changes = 0;
        connect(m_program->connection.get(), &X11Connection::eventReceived, &impostor,
                [&](const xcb_generic_event_t& event) {
                    if (event.response_type == XCB_PROPERTY_NOTIFY &&
                        reinterpret_cast<const xcb_property_notify_event_t&>(event).window ==
                            watched)
                        ++changes;
                });
        xcb_change_property(m_program->connection->xcb(), XCB_PROP_MODE_REPLACE, watched,
                            XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 1, "x");
        QTRY_COMPARE(changes, 1);
    }

    void copyRightAfterAWriteIsSeen()
    {
        ScriptedOwner other;
        other.formats = {{"UTF8_STRING", "other"}};
        pasteboard().write(textOnly(u"written"_s));
        const qint64 after = pasteboard().changeCount();
        QTRY_VERIFY(Xclip::pastes("written"));
        other.take();

        QTRY_COMPARE(pasteboard().changeCount(), after + 1);
        QCOMPARE(pasteboard().content(), textOnly(u"other"_s));
        QVERIFY(other.ownsSelection());
    }

    void serverDecidesBetweenASimultaneousWriteAndCopy()
    {
        for (int i = 0; i < 50; ++i) {
            ScriptedOwner other;
            other.formats = {{"UTF8_STRING", "other"}};
            if (i % 2 == 0)
                other.take();
            pasteboard().write(textOnly(u"written"_s));
            m_program->connection->flush();
            if (i % 2 == 1)
                other.take();

            // Whoever won, the program and all others agree.
            QTRY_VERIFY((other.ownsSelection() && pasteboard().content() == textOnly(u"other"_s)) ||
                        (!other.ownsSelection() &&
                         pasteboard().content() == textOnly(u"written"_s) &&
                         Xclip::pastes("written")));
        }
    }

    void lastOfManyWritesIsKept()
    {
        for (int i = 0; i < 100; ++i)
            pasteboard().write(textOnly(QString::number(i)));
        QCOMPARE(pasteboard().content(), textOnly(u"99"_s));
        QTRY_VERIFY(Xclip::pastes("99"));
        QCOMPARE(pasteboard().changeCount(), 100);
    }
};

DRIFTBOX_DISPLAY_TEST(TestX11PasteboardOffering)
#include "TestX11PasteboardOffering.moc"
