// The DWG codec: reading and writing of drawing files for AcDbDatabase::readDwgFile, saveAs and
// acdbGetPreviewBitmapFromDwg.
#pragma once

// Registers the codec with the database layer. Loading this library does so by itself; a program that
// would not load it otherwise calls this once. Harmless to repeat.
void dwgInstallCodec();
