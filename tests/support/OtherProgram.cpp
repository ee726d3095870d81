#include "support/OtherProgram.h"

#include <csignal>

#include <QtCore/QDeadlineTimer>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace driftbox {

namespace {

constexpr int programTimeoutMs = 20'000;
constexpr int timeoutMs = 2000; ///< for a program to exit

void xdotool(const QStringList& arguments)
{
    QCOMPARE(QProcess::execute(u"xdotool"_s, arguments), 0);
}

} // namespace

OtherProgram::OtherProgram(const QStringList& command, const QHash<QString, QString>& environment)
{
    auto variables = QProcessEnvironment::systemEnvironment();
    for (auto variable = environment.cbegin(); variable != environment.cend(); ++variable)
        variables.insert(variable.key(), variable.value());
    m_process.setProcessEnvironment(variables);
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(command.first(), command.mid(1));
}

OtherProgram::~OtherProgram()
{
    m_process.terminate();
    signal(SIGCONT); // a stopped process handles no other signal
    if (!m_process.waitForFinished(timeoutMs)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void OtherProgram::signal(int number) const
{
    if (const auto id = static_cast<pid_t>(m_process.processId()))
        ::kill(id, number);
}

QRectF OtherProgram::caretAt(int position, int characters)
{
    const QList<QByteArray> wanted = {QByteArray::number(position), QByteArray::number(characters)};
    const QDeadlineTimer deadline(programTimeoutMs);
    while (m_line.mid(0, 2) != wanted && !deadline.hasExpired()) {
        m_process.waitForReadyRead(20);
        while (m_process.canReadLine())
            m_line = m_process.readLine().trimmed().split(' ');
    }
    return {m_line.value(2).toDouble(), m_line.value(3).toDouble(), m_line.value(4).toDouble(),
            m_line.value(5).toDouble()};
}

QStringList OtherProgram::qtEditor()
{
    return {QStringLiteral(DRIFTBOX_QT_EDITOR)};
}

QStringList OtherProgram::gtkEditor()
{
    return {u"/usr/bin/python3"_s, QStringLiteral(DRIFTBOX_GTK_EDITOR)};
}

void pressKeys(const QStringList& keys)
{
    xdotool(QStringList{u"key"_s} + keys);
}

void typeText(const QString& text)
{
    xdotool({u"type"_s, u"--delay"_s, u"2"_s, text});
}

} // namespace driftbox
