// Layer ge.
