// Layer ed.
