// Layer gi.
