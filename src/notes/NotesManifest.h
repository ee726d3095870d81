#pragma once

#include "notes/StickyNote.h"
#include "platform/Expected.h"

#include <vector>

#include <QtCore/QByteArray>

/// The saved notes as JSON: a compact array of notes with members in a fixed order, absent ones
/// omitted, and instants as seconds since 2001-01-01T00:00:00Z. Decoding accepts members in any
/// order and ignores unknown ones, but one malformed note makes the whole manifest unreadable.
namespace driftbox::NotesManifest {

/// One element of the array.
[[nodiscard]] QByteArray encode(const StickyNote& note);

Expected<std::vector<StickyNote>> decode(const QByteArray& text);

} // namespace driftbox::NotesManifest
