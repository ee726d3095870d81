#include "support/x11/Xclip.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryFile>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace driftbox::Xclip {

QByteArray pasted(const QString& target, const QString& selection)
{
    constexpr int timeoutMs = 20'000;
    QTemporaryFile file;
    if (!file.open())
        return "the output file cannot be created";
    QProcess xclip;
    xclip.setStandardOutputFile(file.fileName());
    xclip.start(u"xclip"_s, {u"-o"_s, u"-selection"_s, selection, u"-t"_s, target});
    if (!QTest::qWaitFor([&] { return xclip.state() == QProcess::NotRunning; }, timeoutMs))
        return "xclip does not end";
    return file.readAll();
}

bool pastes(const QByteArray& utf8)
{
    return pasted(u"UTF8_STRING"_s) == utf8;
}

} // namespace driftbox::Xclip
