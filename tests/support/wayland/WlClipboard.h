#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QStringList>

/// The programs wl-copy and wl-paste as programs that copy and paste.
namespace driftbox::WlClipboard {

/// A program that has copied and offers its content for as long as this object lives.
class Copy
{
public:
    explicit Copy(const QByteArray& content, const QStringList& options = {});
    ~Copy();
    Q_DISABLE_COPY_MOVE(Copy)

private:
    QProcess m_process;
};

/// What a program pastes of that type; empty when it gets nothing. The event loop does not run.
[[nodiscard]] QByteArray pasted(const QString& type = QStringLiteral("text/plain;charset=utf-8"));

/// The types that programs can paste.
[[nodiscard]] QByteArrayList types();

/// Empties the clipboard.
void clear();

} // namespace driftbox::WlClipboard
