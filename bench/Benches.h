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

} // namespace driftbox::bench
