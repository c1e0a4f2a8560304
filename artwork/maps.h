#pragma once
// The nine maps of the disc, each drawn from its table.

#include <QDir>

/// Draws map1.jpg to map9.jpg into a folder, from the tables in `tables` and the shoreline files in
/// `shores`; only the one whose number is given, if it isn't 0. Throws TableMistake for whatever is
/// wrong: a mistake in a table, labels that lie upon each other, a file that can't be written.
void DrawMaps(QDir const& tables, QDir const& shores, QDir const& folder, int only);
