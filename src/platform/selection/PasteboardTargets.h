#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QHash>
#include <QtCore/QSet>

namespace driftbox {

/// Formats that the program does not understand but hands on as they came, by target name.
using OpaqueFormats = QHash<QByteArray, QByteArray>;

/// What to ask the owner of a selection for. Each list is in order of preference: the next name is
/// tried when the owner refuses the one before.
struct TargetChoice
{
    bool isSecret = false; ///< nothing is to be asked for
    QByteArrayList image;
    QByteArrayList text;
    QByteArrayList rtf;
    QByteArrayList opaque; ///< all of them are wanted

    bool operator==(const TargetChoice&) const = default;
};

/// The names of selection targets, and which of them matter.
namespace PasteboardTargets {

inline constexpr auto utf8String = "UTF8_STRING";
inline constexpr auto utf8Text = "text/plain;charset=utf-8";
inline constexpr auto plainText = "text/plain";
inline constexpr auto latin1String = "STRING";
inline constexpr auto anyText = "TEXT";
inline constexpr auto png = "image/png";
inline constexpr auto secretHint = "x-kde-passwordManagerHint";

/// The names under which RTF goes.
[[nodiscard]] const QByteArrayList& rtfNames();

/// Every name that `choose` looks for.
[[nodiscard]] const QByteArrayList& knownNames();

/// What to ask an owner for that offers these of the known names.
[[nodiscard]] TargetChoice choose(const QSet<QByteArray>& offered);

/// What to ask an owner for that does not tell what it offers.
[[nodiscard]] TargetChoice chooseBlindly();

} // namespace PasteboardTargets

} // namespace driftbox
