// What was thrown, in words. Modules throw what their class family throws, some of it by pointer; who runs
// their code catches everything and asks here. A layer that has exceptions of its own registers a reader
// of them, so that the layers below need not know their classes.
#pragma once

#include <string>

// Called while an exception is handled: throws it on, catches its own kind, gives the text, which may be
// empty, and disposes of what was thrown by pointer. False for any other kind.
using AcFaultReader = bool (*)(std::wstring& text);
void acAddFaultReader(AcFaultReader reader);
// Only in a handler (`catch (...)`): one line that is never empty; without a text the name of the type.
// What was thrown by pointer is gone afterwards.
std::wstring acFaultText();
