#pragma once

#include <map>

#include <QtCore/QString>

/// Each benchmark measures one thing and returns its figures by name; times are in milliseconds.
namespace driftbox::bench {

using Figures = std::map<QString, double>;

/// Keystrokes in the search field with 10,000 entries of 4,000 characters, including painting.
[[nodiscard]] Figures search();

/// Captures of a text with 200 entries: insert, prune, write, update of the list.
[[nodiscard]] Figures capture();

/// How long the main thread is blocked while a picture from another program's clipboard is fetched,
/// converted, stored and scaled to a thumbnail. That program must copy after the line "ready" has
/// been printed.
[[nodiscard]] Figures screenshot();

/// With 200 saved notes: the time until a new note accepts input, and of a keystroke in a note of
/// 4,000 characters, of 100,000 characters in lines, and of 100,000 in a single paragraph, each at
/// the end and at the beginning, including writing and painting.
[[nodiscard]] Figures notes();

/// Scrolling the panel's list of 1,000 notes, by nearly a page at a time.
[[nodiscard]] Figures notesList();

/// The editor with a document of 1 MB: opening it, and a keystroke at its beginning and its end,
/// including painting.
[[nodiscard]] Figures reader();

} // namespace driftbox::bench
