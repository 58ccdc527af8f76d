// Part entry.
