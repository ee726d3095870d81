#pragma once

#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtCore/QRectF>
#include <QtCore/QStringList>

namespace driftbox {

/// A program beside the one under test. At the end it is asked to end, so that it can end what it
/// started itself, and killed if it does not.
class OtherProgram
{
public:
    /// `environment` is added to that of the test.
    explicit OtherProgram(const QStringList& command,
                          const QHash<QString, QString>& environment = {});
    ~OtherProgram();
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    void signal(int number) const;

    /// What one of the editors in programs/ prints of its caret, once that is the position among so
    /// many characters. In the editor's own points; empty when it never is.
    [[nodiscard]] QRectF caretAt(int position, int characters);

    [[nodiscard]] static QStringList qtEditor();
    [[nodiscard]] static QStringList gtkEditor();

private:
    QProcess m_process;
    QList<QByteArray> m_line; ///< the fields of the last one printed
};

/// Presses keys in the window that has the keyboard, in the spelling of xdotool.
void pressKeys(const QStringList& keys);
void typeText(const QString& text);

} // namespace driftbox
