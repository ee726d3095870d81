#pragma once

#include <map>

#include <QtCore/QString>

/// Each bench measures one thing and hands back its figures by name, times in milliseconds.
namespace driftbox::bench {

using Figures = std::map<QString, double>;

/// Keystrokes in the search field over 10,000 entries of 4,000 characters, painting included.
[[nodiscard]] Figures search();

/// Captures of a text at 200 entries: insert, prune, write, refresh of the list.
[[nodiscard]] Figures capture();

/// How long the main thread is held while the picture that another program has on the clipboard is
/// fetched, converted, stored and made into a thumbnail. The program copies when the line "ready"
/// has been printed.
[[nodiscard]] Figures screenshot();

/// Among 200 saved notes: until a new one takes typing, and a keystroke in one of 4,000 characters,
/// in one of 100,000 in lines, and in one of 100,000 in a single paragraph, each at the end and at
/// the beginning, writing and painting included.
[[nodiscard]] Figures notes();

/// Scrolling the panel's page of 1,000 notes, by nearly a page at a time.
[[nodiscard]] Figures notesList();

/// The editor of a document of 1 MB: until it is open, and a keystroke at its beginning and at its
/// end, painting included.
[[nodiscard]] Figures reader();

} // namespace driftbox::bench
