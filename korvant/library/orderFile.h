// The user's order file of the block libraries ("orders.xml"): for each folder the titles of its
// blocks in an order of their own. Nothing reads the order yet; it is kept for a reorder button.
#pragma once

#include <string>

// Exchanges the names at `row` and at `row - distance` in the library of the folder whose mask this
// is ("folder\\*.dwg") and writes the file. False, with the file untouched, where the file, the
// library or one of the rows does not exist, or the file cannot be written.
bool swapInOrderFile(const std::wstring& orderFile, const std::wstring& folderMask, int row, int distance);
