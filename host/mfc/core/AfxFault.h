// Handlers of the program are called by the toolkit, whose frames no exception may fly through.
#pragma once

// In a handler of an exception: tells in one line what was thrown. A person goes on in the window; a script
// stops, and every open window is cancelled.
void afxTellFault();

// Calls a handler of the program; what it throws is told.
template <class Call> void afxGuarded(const Call& call) {
    try {
        call();
    } catch (...) {
        afxTellFault();
    }
}
