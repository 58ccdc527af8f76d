// Ctrl-C of the console: what asks is cancelled, a long job is told when it asks.
#pragma once

void consoleCatchBreak();
// Whether Ctrl-C was pressed since it was taken last.
bool consoleBreakPending();
// The same, and forgets it.
bool consoleTakeBreak();
// Waits until standard input has something to read or has ended. False where Ctrl-C came first.
bool consoleWaitForInput();
