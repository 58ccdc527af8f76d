// The rules by which a plate finds its place on a post: by hand in the dialog and again at the import.
#pragma once

#include "TrfcTable.h"

class TrfcBlockChain;

// Adds the plate to the upward list, takes it down to its place by the names of the library files where the
// drawing asks for that, makes it complementary when it comes from the folder of supplementary plates, and
// points the complementary plates to their main signs. Its index then; -1 where the chain refuses the plate.
// relativePath: of the plate's file, from the library of plates.
int addPlate(TrfcBlockChain& chain, std::unique_ptr<TrfcTable> plate, const std::wstring& relativePath);

// Points every complementary plate to its main sign. A plate declared complementary points to itself until it is
// told its main sign; while none lies above it that waits: it would turn into a main sign, and the one that is
// added next would find no plate of its own.
void pointToMainSigns(TrfcBlockChain& chain);
