#pragma once

#include "platform/selection/ByteSizes.h"

#include <chrono>
#include <cstdint>

#include <QtCore/QString>

namespace driftbox {

/// The formats of another program's content, in the order in which they are requested.
enum class ContentFormat : std::uint8_t { image, text, rtf, opaque };

/// Why a format could not be read.
enum class TransferFailure : std::uint8_t {
    timedOut, ///< not complete within the deadline
    tooLarge,
    malformed, ///< the owner does not keep to the protocol
};

/// Limits for each transfer from another program.
namespace TransferLimits {

/// The time limit for one format.
inline constexpr std::chrono::milliseconds deadline{2'000};
inline constexpr qsizetype contentSize = 64 * mebibyte;
inline constexpr qsizetype opaqueSize = mebibyte;
/// An owner that has let this many requests time out is not asked again.
inline constexpr int maxTimeouts = 2;

} // namespace TransferLimits

/// The log line for a format that was refused. Empty for an opaque format, which matters only after
/// its owner has ended.
[[nodiscard]] QString refusalLine(ContentFormat format, TransferFailure failure);

} // namespace driftbox
