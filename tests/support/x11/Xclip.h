#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Pastes with the program xclip. The event loop runs meanwhile.
namespace driftbox::Xclip {

/// The content in this format; empty if there is none.
[[nodiscard]] QByteArray pasted(const QString& target,
                                const QString& selection = QStringLiteral("clipboard"));

/// Whether it pastes this text.
[[nodiscard]] bool pastes(const QByteArray& utf8);

} // namespace driftbox::Xclip
