#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// The program xclip as one that pastes. The event loop runs while it does.
namespace driftbox::Xclip {

/// What it pastes of that format; empty when it gets nothing.
[[nodiscard]] QByteArray pasted(const QString& target,
                                const QString& selection = QStringLiteral("clipboard"));

/// Whether it pastes this text.
[[nodiscard]] bool pastes(const QByteArray& utf8);

} // namespace driftbox::Xclip
