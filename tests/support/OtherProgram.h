#pragma once

#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtCore/QRectF>
#include <QtCore/QStringList>

namespace driftbox {

/// Another process besides the one under test. The destructor terminates it, so that it can clean
/// up its own child processes, and kills it after a timeout.
class OtherProgram
{
public:
    /// `environment` is added to the test's environment.
    explicit OtherProgram(const QStringList& command,
                          const QHash<QString, QString>& environment = {});
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void signal(int number) const;

    /// Waits until one of the editors in programs/ reports the caret at `position` in a text of
    /// this many characters. Returns the caret's rectangle in the editor's points; empty on
    /// timeout.
    [[nodiscard]] QRectF caretAt(int position, int characters);

    [[nodiscard]] static QStringList qtEditor();
    [[nodiscard]] static QStringList gtkEditor();

private:
    QProcess m_process;
    QList<QByteArray> m_line; ///< the fields of the last output line
};

/// Presses keys, named as in xdotool, in the focused window.
void pressKeys(const QStringList& keys);
void typeText(const QString& text);

} // namespace driftbox
