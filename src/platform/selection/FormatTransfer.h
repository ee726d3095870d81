#pragma once

#include "platform/selection/ByteSizes.h"

#include <chrono>
#include <cstdint>

#include <QtCore/QString>

namespace driftbox {

/// The kinds of content that are asked for, one after the other.
enum class ContentFormat : std::uint8_t { image, text, rtf, opaque };

/// Why a format of another program's content is not had.
enum class TransferFailure : std::uint8_t {
    timedOut, ///< not complete within the deadline
    tooLarge,
    malformed, ///< the owner does not keep to the protocol
};

/// The limits of every transfer from another program.
namespace TransferLimits {

/// How long an owner has for one format.
inline constexpr std::chrono::milliseconds deadline{2'000};
inline constexpr qsizetype contentSize = 64 * mebibyte;
inline constexpr qsizetype opaqueSize = mebibyte;
/// An owner that has let this many requests time out is not asked again.
inline constexpr int maxTimeouts = 2;

} // namespace TransferLimits

/// The log line for a format that was refused; empty for an opaque one, which the user misses only
/// when its owner ends.
[[nodiscard]] QString refusalLine(ContentFormat format, TransferFailure failure);

} // namespace driftbox
