// Layer win.
