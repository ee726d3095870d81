#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QHash>
#include <QtCore/QSet>

namespace driftbox {

/// Formats, by target name, that the program passes on without interpreting them.
using OpaqueFormats = QHash<QByteArray, QByteArray>;

/// The targets to request from a selection's owner. Each list is in order of preference: the next
/// name is tried when the owner refuses the previous one.
struct TargetChoice
{
    bool isSecret = false; ///< nothing must be requested
    QByteArrayList image;
    QByteArrayList text;
    QByteArrayList rtf;
    QByteArrayList opaque; ///< all of them are requested

    bool operator==(const TargetChoice&) const = default;
};

/// Names of selection targets, and their selection by preference.
namespace PasteboardTargets {

inline constexpr auto utf8String = "UTF8_STRING";
inline constexpr auto utf8Text = "text/plain;charset=utf-8";
inline constexpr auto plainText = "text/plain";
inline constexpr auto latin1String = "STRING";
inline constexpr auto anyText = "TEXT";
inline constexpr auto png = "image/png";
inline constexpr auto secretHint = "x-kde-passwordManagerHint";

/// The names by which RTF is offered.
[[nodiscard]] const QByteArrayList& rtfNames();

/// All names that `choose` considers.
[[nodiscard]] const QByteArrayList& knownNames();

/// The targets to request from an owner that offers the given known names.
[[nodiscard]] TargetChoice choose(const QSet<QByteArray>& offered);

/// The targets to request from an owner that does not report its targets.
[[nodiscard]] TargetChoice chooseDefault();

} // namespace PasteboardTargets

} // namespace driftbox
